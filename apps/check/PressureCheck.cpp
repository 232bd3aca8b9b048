#include "PressureCheck.h"

#include "faults/NetworkFindings.h"
#include "networks/PressureForest.h"

namespace pipenet {

void checkPressure(SystemUnderCheck& under) {
    PressureForest forest(under.named().name);
    placeNetworks(under, forest.grow(), true);
    findCycles(under);
    findTurnedRuns(under, forest.turnedRuns());
}

} // namespace pipenet
