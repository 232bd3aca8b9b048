#include "PressureCheck.h"

#include "faults/Crossings.h"
#include "faults/NetworkFindings.h"
#include "faults/PressureEnds.h"
#include "networks/PressureForest.h"

#include <vector>

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

} // namespace

void checkPressure(SystemUnderCheck& under) {
    PressureForest forest(under.named().name, otherSystems(under));
    placeNetworks(under, forest.grow(), true);
    findCycles(under);
    findTurnedRuns(under, forest.turnedRuns());
    findPressureEnds(forest, under);
    findCrossingHeights(forest, under);
}

} // namespace pipenet
