#include "HandleText.h"
#include "OpenedObject.h"
#include "records/NetworkSelection.h"
#include "records/XdataKeys.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// A text that only entities of one kind carry, and the text by which the search knows that kind.
struct Telltale {
    const wchar_t* key;
    const wchar_t* mark;
    const char* kind;
    bool isBlock;
};

constexpr Telltale kTelltales[] = {{xdata::kWellNumber, xdata::kWellSystem, "well", true},
                                   {xdata::kWellDiameter, xdata::kWellSystem, "well", true},
                                   {xdata::kTankSystem, xdata::kTank, "tank", true},
                                   {xdata::kDiameter, xdata::kPipeSystem, "pipe", false},
                                   {xdata::kStartElevation, xdata::kPipeSystem, "pipe", false},
                                   {xdata::kEndElevation, xdata::kPipeSystem, "pipe", false},
                                   {xdata::kFlow, xdata::kPipeSystem, "pipe", false}};

bool isBlock(const AcDbObjectId& id) {
    return static_cast<bool>(siblings::OpenedObject<AcDbBlockReference>(id, AcDb::kForRead));
}

bool isCurve(const AcDbObjectId& id) {
    return static_cast<bool>(siblings::OpenedObject<AcDbCurve>(id, AcDb::kForRead));
}

const Telltale* telltaleOf(const AcDbObjectId& id) {
    for (const Telltale& each : kTelltales) {
        if (!XdataText(id, each.key).IsEmpty() && (each.isBlock ? isBlock(id) : isCurve(id))) {
            return &each;
        }
    }
    return nullptr;
}

Finding findingOf(const AcDbObjectId& id, const Telltale& telltale) {
    Finding finding;
    finding.code = "missing-key";
    finding.severity = Severity::error;
    finding.system = utf8(XdataText(id, xdata::kTankSystem));
    finding.entities = {id};
    finding.place = placeOf(id);
    finding.sentence = fmt::format("entity {} carries {} but not {}, by which a {} is known: no "
                                   "search sees it; write {} if it is "
                                   "a {}, else take the other texts off",
                                   handleText(id), utf8(telltale.key), utf8(telltale.mark),
                                   telltale.kind, utf8(telltale.mark), telltale.kind);
    return finding;
}

} // namespace

void checkStrayKeys(TextCheck& check) {
    const tkvlt::NetworkSelection selection{
        xdata::kWellNumber,     xdata::kWellDiameter, xdata::kTankSystem, xdata::kDiameter,
        xdata::kStartElevation, xdata::kEndElevation, xdata::kFlow};
    for (Adesk::Int32 i = 0; i < selection.Length(); ++i) {
        const AcDbObjectId id = selection.At(i);
        if (networkEntity(id)) {
            continue;
        }
        if (const Telltale* telltale = telltaleOf(id)) {
            Finding finding = findingOf(id, *telltale);
            if (check.context.onlySystem.empty() || finding.system == check.context.onlySystem) {
                check.report.findings.push_back(std::move(finding));
            }
        }
    }
}

} // namespace pipenet
