#include "database/LoadLinetype.h"

#include "database/AcDbDatabase.h"
#include "database/LinetypeFile.h"
#include "platform/HostEvents.h"
#include "platform/SupportFiles.h"

#include <fstream>
#include <iterator>
#include <memory>

namespace host_db {
namespace {

Acad::ErrorStatus readDefinition(const ACHAR* name, const ACHAR* file,
                                 LinetypeDefinition& definition) {
    const std::string path = host::findSupportFile(file);
    if (path.empty()) {
        return Acad::eFileNotFound;
    }
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) {
        return Acad::eFileAccessErr;
    }
    return findLinetype(decodeLinetypeFile(bytes), name, definition);
}

/// The dash in the drawing; false when it names a text style that the drawing lacks.
bool makeDash(const LinetypeDefinition::Dash& read, const AcDbSymbolTable& styles,
              LinetypeDash& dash) {
    dash.length = read.length;
    if (!read.hasText) {
        return true;
    }
    dash.flags = LinetypeDash::kText | (read.isAbsolute ? LinetypeDash::kAbsoluteRotation : 0) |
                 (read.isUpright ? LinetypeDash::kUpright : 0);
    dash.style = styles.find(read.style.c_str());
    dash.scale = read.scale;
    dash.rotation = read.rotation;
    dash.offset = {read.x, read.y};
    dash.text = read.text.c_str();
    return !dash.style.isNull();
}

std::unique_ptr<AcDbLinetypeTableRecord> makeRecord(const AcDbDatabase& database,
                                                    const LinetypeDefinition& definition) {
    const auto* const styles = peek<AcDbSymbolTable>(database.textStyleTableId());
    std::vector<LinetypeDash> dashes;
    for (const LinetypeDefinition::Dash& read : definition.dashes) {
        if (!makeDash(read, *styles, dashes.emplace_back())) {
            return nullptr;
        }
    }
    auto record = std::make_unique<AcDbLinetypeTableRecord>();
    record->setName(definition.name.c_str());
    record->setComments(definition.description.c_str());
    record->setDashes(std::move(dashes));
    return record;
}

Acad::ErrorStatus addTo(const AcDbDatabase& database,
                        std::unique_ptr<AcDbLinetypeTableRecord> record) {
    AcDbLinetypeTable* table = nullptr;
    const Acad::ErrorStatus opened = database.getSymbolTable(table, AcDb::kForWrite);
    if (opened != Acad::eOk) {
        return opened;
    }
    const Acad::ErrorStatus added = table->add(record.get());
    if (added == Acad::eOk) {
        record.release()->close();
    }
    table->close();
    return added;
}

} // namespace

Acad::ErrorStatus loadLinetype(AcDbDatabase& database, const ACHAR* name, const ACHAR* file) {
    if (name == nullptr || *name == L'\0' || file == nullptr || *file == L'\0') {
        return Acad::eInvalidInput;
    }
    if (peek<AcDbSymbolTable>(database.linetypeTableId())->has(name)) {
        return Acad::eDuplicateKey;
    }
    LinetypeDefinition definition;
    const Acad::ErrorStatus status = readDefinition(name, file, definition);
    if (status != Acad::eOk) {
        return status;
    }
    std::unique_ptr<AcDbLinetypeTableRecord> record = makeRecord(database, definition);
    return record == nullptr ? Acad::eInvalidKey : addTo(database, std::move(record));
}

} // namespace host_db

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* name, const ACHAR* file) {
    Acad::ErrorStatus status = Acad::eOk;
    {
        const host::EventSilence silence;
        status = host_db::loadLinetype(*this, name, file);
    }
    if (host::isListening()) {
        const auto text = [](const ACHAR* each) { return each == nullptr ? L"" : each; };
        host::announce(std::wstring(L"linetype ") + text(name) + L" " + text(file) + L" = " +
                       acadErrorStatusText(status));
    }
    return status;
}
