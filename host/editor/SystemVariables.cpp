#include "editor/SystemVariables.h"

#include "application/AcApDocManager.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/UndoJournal.h"
#include "editor/CommandInput.h"
#include "editor/EditorCommand.h"
#include "editor/EditorSession.h"
#include "platform/HostEvents.h"
#include "platform/WideCharacters.h"

#include <cmath>
#include <limits>
#include <map>

namespace host_ed {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Reader = void (*)(const CommandContext& context, resbuf& result);
using Writer = bool (*)(const CommandContext& context, const resbuf& value);

/// A variable. One with neither reader nor writer is a number that is kept; one with a reader alone
/// cannot be set.
struct Variable {
    const wchar_t* name;
    int type;
    bool isOfDrawing = true;
    double low = 0.0;
    double high = 0.0;
    double initial = 0.0;
    Reader read = nullptr;
    Writer write = nullptr;
};

/// Numbers of the program's own variables, which no drawing owns.
std::map<std::wstring, double>& programNumbers() {
    static std::map<std::wstring, double> numbers;
    return numbers;
}

void giveText(const std::wstring& text, resbuf& result) {
    result.resval.rstring = nullptr;
    acutNewString(text.c_str(), result.resval.rstring);
}

void givePoint(const AcGeVector3d& point, resbuf& result) {
    result.resval.rpoint[0] = point.x;
    result.resval.rpoint[1] = point.y;
    result.resval.rpoint[2] = point.z;
}

AcGeVector3d axisOf(const CommandContext& context, int index) {
    AcGePoint3d origin;
    AcGeVector3d axes[3];
    context.session.ucs.getCoordSystem(origin, axes[0], axes[1], axes[2]);
    return axes[index];
}

const AcApDocument* documentOf(const CommandContext& context) {
    return acDocManager()->document(&context.database);
}

std::wstring fileOf(const CommandContext& context) {
    const AcApDocument* document = documentOf(context);
    return document == nullptr ? std::wstring() : std::wstring(document->fileName());
}

void readClayer(const CommandContext& context, resbuf& result) {
    const auto* layer = host_db::peek<AcDbLayerTableRecord>(context.database.clayer());
    giveText(layer == nullptr ? L"" : layer->name().GetString(), result);
}

bool writeClayer(const CommandContext& context, const resbuf& value) {
    const auto* table = host_db::peek<AcDbLayerTable>(context.database.layerTableId());
    const AcDbObjectId layer = table->find(value.resval.rstring);
    const auto* record = host_db::peek<AcDbLayerTableRecord>(layer);
    return record != nullptr && !record->isFrozen() &&
           context.database.setClayer(layer) == Acad::eOk;
}

void readCommandNames(const CommandContext& context, resbuf& result) {
    const EditorCommand* pending = context.session.pending.get();
    giveText(pending == nullptr ? L"" : pending->name(), result);
}

void readCommandActive(const CommandContext& context, resbuf& result) {
    result.resval.rint = context.session.pending == nullptr ? 0 : 1;
}

void readUndoState(const CommandContext& context, resbuf& result) {
    // 1: taking back is possible; 8: a group is open.
    result.resval.rint = context.database.undoJournal().isGroupOpen() ? 9 : 1;
}

void readWorldUcs(const CommandContext& context, resbuf& result) {
    result.resval.rint = context.session.ucs == AcGeMatrix3d::kIdentity ? 1 : 0;
}

void readLastPoint(const CommandContext& context, resbuf& result) {
    givePoint((context.session.ucs.inverse() * context.session.lastPoint).asVector(), result);
}

void readViewCenter(const CommandContext& context, resbuf& result) {
    givePoint((context.session.ucs.inverse() * context.session.viewCenter).asVector(), result);
}

const Variable kVariables[] = {
    {L"ATTREQ", RTSHORT, false, 0, 1, 1},
    {L"CLAYER", RTSTR, true, 0, 0, 0, readClayer, writeClayer},
    {L"CMDACTIVE", RTSHORT, true, 0, 0, 0, readCommandActive},
    {L"CMDDIA", RTSHORT, false, 0, 1, 1},
    {L"CMDECHO", RTSHORT, false, 0, 1, 1},
    {L"CMDNAMES", RTSTR, true, 0, 0, 0, readCommandNames},
    {L"CTAB", RTSTR, true, 0, 0, 0,
     [](const CommandContext&, resbuf& result) { giveText(L"Model", result); }},
    {L"DWGNAME", RTSTR, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) {
         const AcApDocument* document = documentOf(context);
         giveText(document == nullptr ? L"" : document->docTitle(), result);
     }},
    {L"DWGPREFIX", RTSTR, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) {
         const std::wstring file = fileOf(context);
         giveText(file.substr(0, file.find_last_of(L"/\\") + 1), result);
     }},
    {L"DWGTITLED", RTSHORT, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) {
         result.resval.rint = fileOf(context).empty() ? 0 : 1;
     }},
    {L"EXPERT", RTSHORT, false, 0, 5, 0},
    {L"FILEDIA", RTSHORT, false, 0, 1, 1},
    {L"FILLMODE", RTSHORT, true, 0, 1, 1},
    {L"GRIDMODE", RTSHORT, true, 0, 1, 0},
    {L"HIGHLIGHT", RTSHORT, false, 0, 1, 1},
    {L"LASTPOINT", RT3DPOINT, true, 0, 0, 0, readLastPoint},
    {L"LTSCALE", RTREAL, true, std::numeric_limits<double>::min(), kInfinity, 1},
    {L"ORTHOMODE", RTSHORT, true, 0, 1, 0},
    {L"OSMODE", RTSHORT, false, 0, 32767, 4133},
    {L"PICKBOX", RTSHORT, false, 0, 50, 3},
    {L"PICKFIRST", RTSHORT, false, 0, 1, 1},
    {L"SNAPMODE", RTSHORT, true, 0, 1, 0},
    {L"TEXTSIZE", RTREAL, true, std::numeric_limits<double>::min(), kInfinity, 2.5},
    {L"TILEMODE", RTSHORT, true, 0, 0, 0,
     [](const CommandContext&, resbuf& result) { result.resval.rint = 1; }},
    {L"UCSORG", RT3DPOINT, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) {
         givePoint(context.session.ucs.translation(), result);
     }},
    {L"UCSXDIR", RT3DPOINT, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) { givePoint(axisOf(context, 0), result); }},
    {L"UCSYDIR", RT3DPOINT, true, 0, 0, 0,
     [](const CommandContext& context, resbuf& result) { givePoint(axisOf(context, 1), result); }},
    {L"UNDOCTL", RTSHORT, true, 0, 0, 0, readUndoState},
    {L"VIEWCTR", RT3DPOINT, true, 0, 0, 0, readViewCenter},
    {L"VIEWSIZE", RTREAL, true, std::numeric_limits<double>::min(), kInfinity, 1000},
    {L"WORLDUCS", RTSHORT, true, 0, 0, 0, readWorldUcs},
};

const Variable* findVariable(const ACHAR* name) {
    if (name == nullptr) {
        return nullptr;
    }
    for (const Variable& variable : kVariables) {
        if (host_text::compareNoCase(variable.name, name) == 0) {
            return &variable;
        }
    }
    return nullptr;
}

std::map<std::wstring, double>& numbersOf(const Variable& variable, EditorSession& session) {
    return variable.isOfDrawing ? session.numbers : programNumbers();
}

double numberOf(const Variable& variable, EditorSession& session) {
    const auto& numbers = numbersOf(variable, session);
    const auto it = numbers.find(variable.name);
    return it == numbers.end() ? variable.initial : it->second;
}

bool setNumber(const Variable& variable, EditorSession& session, const resbuf& value) {
    const double number = variable.type == RTREAL ? value.resval.rreal : value.resval.rint;
    const bool fits = number >= variable.low && number <= variable.high && std::isfinite(number);
    if (fits) {
        numbersOf(variable, session)[variable.name] = number;
    }
    return fits;
}

/// `value` gets the variable's type and value.
void read(const Variable& variable, const CommandContext& context, resbuf& value) {
    value.restype = static_cast<short>(variable.type);
    if (variable.read != nullptr) {
        variable.read(context, value);
    } else if (variable.type == RTREAL) {
        value.resval.rreal = numberOf(variable, context.session);
    } else {
        value.resval.rint = static_cast<short>(numberOf(variable, context.session));
    }
}

bool write(const Variable& variable, const CommandContext& context, const resbuf& value) {
    if (value.restype != variable.type) {
        return false;
    }
    if (variable.read == nullptr) {
        return setNumber(variable, context.session, value);
    }
    return variable.write != nullptr && variable.write(context, value);
}

} // namespace
} // namespace host_ed

int acedGetVar(const ACHAR* name, resbuf* result) {
    const host_ed::Variable* variable = host_ed::findVariable(name);
    host_ed::EditorSession* session = host_ed::currentSession();
    if (variable == nullptr || result == nullptr || session == nullptr) {
        return RTERROR;
    }
    host_ed::read(*variable, {*acdbHostApplicationServices()->workingDatabase(), *session},
                  *result);
    if (host::isListening()) {
        host::announce(std::wstring(L"getvar ") + variable->name);
    }
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value) {
    const host_ed::Variable* variable = host_ed::findVariable(name);
    host_ed::EditorSession* session = host_ed::currentSession();
    if (variable == nullptr || value == nullptr || session == nullptr ||
        (value->restype == RTSTR && value->resval.rstring == nullptr)) {
        return RTERROR;
    }
    const host_ed::CommandContext context{*acdbHostApplicationServices()->workingDatabase(),
                                          *session};
    if (!host_ed::write(*variable, context, *value)) {
        return RTERROR;
    }
    if (host::isListening()) {
        // Only a text stands in quotes in a command; here it is told as it is.
        resbuf single = *value;
        single.rbnext = nullptr;
        const std::wstring text = variable->type == RTSTR
                                      ? L" " + std::wstring(single.resval.rstring)
                                      : host_ed::textOf(&single);
        host::announce(std::wstring(L"setvar ") + variable->name + text);
    }
    return RTNORM;
}
