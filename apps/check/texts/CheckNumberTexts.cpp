#include "HandleText.h"
#include "records/XdataKeys.h"
#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/NumberText.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

using PipeSet = std::unordered_set<AcDbObjectId> UnreadablePipes::*;

/// A text that is read as a number.
struct NumberKey {
    EntityKind carrier;
    const wchar_t* key;
    NumberKind kind;
    const char* unit;
    PipeSet unreadable; ///< null for what no later step weighs
};

constexpr NumberKey kNumberKeys[] = {
    {EntityKind::pipe, xdata::kDiameter, NumberKind::whole, "mm", &UnreadablePipes::diameters},
    {EntityKind::pipe, xdata::kSlope, NumberKind::real, "", &UnreadablePipes::slopes},
    {EntityKind::pipe, xdata::kStartElevation, NumberKind::real, "m", &UnreadablePipes::heights},
    {EntityKind::pipe, xdata::kEndElevation, NumberKind::real, "m", &UnreadablePipes::heights},
    {EntityKind::well, xdata::kWellDiameter, NumberKind::real, "m", nullptr},
    {EntityKind::tank, xdata::kTankLength, NumberKind::real, "mm", nullptr}};

Finding findingOf(const CheckedEntity& entity, const NumberKey& number, const CString& text,
                  const NumberReading& reading) {
    Finding finding;
    finding.code = "number-not-whole";
    finding.severity = reading.isNumber ? Severity::warning : Severity::error;
    finding.entities = {entity.id};
    finding.place = placeOf(entity.id);
    finding.measured = reading.value;
    finding.unit = number.unit;
    finding.sentence = fmt::format(
        "{} of {} is '{}' and is read as {}{}{}; write {} alone", utf8(number.key),
        nameOf(entity.id), utf8(text), reading.value, finding.unit.empty() ? "" : " ", finding.unit,
        number.kind == NumberKind::whole ? "the number of whole millimetres" : "the number");
    return finding;
}

void checkText(TextCheck& check, const CheckedEntity& entity, const NumberKey& number) {
    const CString text = XdataText(entity.id, number.key);
    if (text.IsEmpty()) {
        return;
    }
    const NumberReading reading = readNumber(text, number.kind);
    if (reading.isWhole) {
        return;
    }
    if (number.unreadable != nullptr) {
        (check.unreadable.*number.unreadable).insert(entity.id);
    }
    Finding finding = findingOf(entity, number, text, reading);
    finding.system = check.context.systemOf(entity).utf8Name;
    check.report.findings.push_back(std::move(finding));
}

} // namespace

void checkNumberTexts(TextCheck& check) {
    for (const CheckedEntity& entity : check.context.entities) {
        for (const NumberKey& number : kNumberKeys) {
            if (number.carrier == entity.kind) {
                checkText(check, entity, number);
            }
        }
    }
}

} // namespace pipenet
