#include "PressureCheck.h"

#include "faults/Crossings.h"
#include "faults/NetworkFindings.h"
#include "faults/PressureEnds.h"
#include "networks/PressureForest.h"
#include "Systems.h"

#include <fmt/format.h>
#include <unordered_set>

namespace pipenet {

namespace {

std::vector<CString> otherSystems(const SystemUnderCheck& under) {
    std::vector<CString> others;
    for (const CheckedSystem& system : under.context.systems) {
        if (system.name != under.named().name) {
            others.push_back(system.name);
        }
    }
    return others;
}

void findWellsWithoutPipe(SystemUnderCheck& under) {
    std::unordered_set<AcDbObjectId> placed;
    for (const CheckedNode& node : under.pieces.nodes) {
        placed.insert(node.entity);
    }
    for (const CheckedEntity& entity : under.context.entities) {
        if (entity.kind != EntityKind::well || entity.system != under.system ||
            placed.count(entity.id) != 0) {
            continue;
        }
        Finding& finding = under.add("well-without-pipe", Severity::warning);
        finding.entities = {entity.id};
        finding.place = _Block(entity.id, CString(), CString()).position;
        finding.sentence =
            fmt::format("{} lies on no pipe of the system; move it onto its pipe, or "
                        "take it away",
                        nameOf(entity.id));
    }
}

} // namespace

void checkPressure(SystemUnderCheck& under) {
    PressureForest forest(under.named().name, otherSystems(under));
    placeNetworks(under, forest.grow(), true);
    findCycles(under);
    findTurnedRuns(under, forest.turnedRuns());
    findPressureEnds(forest, under);
    findCrossingHeights(forest, under);
    findWellsWithoutPipe(under);
}

} // namespace pipenet
