#include "HandleText.h"
#include "records/XdataKeys.h"
#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

namespace {

/// A text that is missing, and what comes of it.
struct MissingKey {
    const wchar_t* key;
    Severity severity;
    const char* consequence;
};

bool lacks(const AcDbObjectId& id, const wchar_t* key) {
    return XdataText(id, key).IsEmpty();
}

std::vector<MissingKey> missingOfWell(const AcDbObjectId& id) {
    std::vector<MissingKey> missing;
    if (lacks(id, xdata::kWellSystem)) {
        missing.push_back(
            {xdata::kWellSystem, Severity::error, "the well belongs to no named system"});
    }
    if (lacks(id, xdata::kWellDiameter)) {
        missing.push_back({xdata::kWellDiameter, Severity::error,
                           "the well counts as 0 wide, so that no pipe ends at it"});
    }
    if (lacks(id, xdata::kWellNumber)) {
        missing.push_back({xdata::kWellNumber, Severity::note, "the well has no number"});
    }
    return missing;
}

std::vector<MissingKey> missingOfTank(const AcDbObjectId& id) {
    std::vector<MissingKey> missing;
    if (lacks(id, xdata::kTankSystem)) {
        missing.push_back({xdata::kTankSystem, Severity::warning,
                           "no search can start at the tank, and it counts as a point in lengths"});
    } else if (lacks(id, xdata::kTankLength)) {
        missing.push_back(
            {xdata::kTankLength, Severity::note, "the tank counts as a point in lengths"});
    }
    return missing;
}

/// Elevations matter where water runs by gravity; under pressure a pipe may well have none, but one
/// alone leaves the other at 0.
std::vector<MissingKey> missingHeights(const AcDbObjectId& id, int flow) {
    const bool noStart = lacks(id, xdata::kStartElevation);
    const bool noEnd = lacks(id, xdata::kEndElevation);
    const char* zero = "the elevation there counts as 0";
    std::vector<MissingKey> missing;
    if (noStart && noEnd && flow != kGravityFlow) {
        return missing;
    }
    const Severity one = flow == kGravityFlow ? Severity::error : Severity::warning;
    if (noStart) {
        missing.push_back({xdata::kStartElevation, noEnd ? Severity::warning : one, zero});
    }
    if (noEnd) {
        missing.push_back({xdata::kEndElevation, noStart ? Severity::warning : one, zero});
    }
    return missing;
}

std::vector<MissingKey> missingOfPipe(const AcDbObjectId& id, int flow) {
    std::vector<MissingKey> missing = missingHeights(id, flow);
    if (lacks(id, xdata::kPipeSystem)) {
        missing.push_back(
            {xdata::kPipeSystem, Severity::error, "the pipe belongs to no named system"});
    }
    if (lacks(id, xdata::kDiameter)) {
        missing.push_back({xdata::kDiameter, Severity::warning, "the diameter counts as 0"});
    }
    return missing;
}

Finding findingOf(const AcDbObjectId& id, const std::string& system,
                  const std::vector<MissingKey>& missing) {
    Finding finding;
    finding.code = "missing-key";
    finding.severity =
        std::min_element(missing.begin(), missing.end(), [](const auto& a, const auto& b) {
            return static_cast<int>(a.severity) < static_cast<int>(b.severity);
        })->severity;
    finding.system = system;
    finding.entities = {id};
    finding.place = placeOf(id);
    std::string keys;
    std::string consequences;
    for (const MissingKey& each : missing) {
        const bool isNew = consequences.find(each.consequence) == std::string::npos;
        keys += (keys.empty() ? "" : ", ") + utf8(each.key);
        consequences +=
            isNew ? (consequences.empty() ? "" : "; ") + std::string(each.consequence) : "";
    }
    finding.sentence = fmt::format("{} carries no text under {}: {}; write {}", nameOf(id), keys,
                                   consequences, missing.size() == 1 ? "it" : "them");
    return finding;
}

void note(UnreadablePipes& unreadable, const AcDbObjectId& pipe) {
    if (lacks(pipe, xdata::kStartElevation) || lacks(pipe, xdata::kEndElevation)) {
        unreadable.heights.insert(pipe);
    }
    if (lacks(pipe, xdata::kSlope)) {
        unreadable.slopes.insert(pipe); // nothing is said of its slope, which is no fault
    }
    if (lacks(pipe, xdata::kDiameter)) {
        unreadable.diameters.insert(pipe);
    }
}

} // namespace

void checkMissingKeys(TextCheck& check) {
    for (const CheckedEntity& entity : check.context.entities) {
        const CheckedSystem& system = check.context.systemOf(entity);
        std::vector<MissingKey> missing;
        switch (entity.kind) {
        case EntityKind::pipe:
            missing = missingOfPipe(entity.id, system.flow);
            note(check.unreadable, entity.id);
            break;
        case EntityKind::well:
            missing = missingOfWell(entity.id);
            break;
        case EntityKind::tank:
            missing = missingOfTank(entity.id);
            break;
        }
        if (!missing.empty()) {
            check.report.findings.push_back(findingOf(entity.id, system.utf8Name, missing));
        }
    }
}

} // namespace pipenet
