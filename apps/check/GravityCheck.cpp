#include "GravityCheck.h"

#include "faults/NetworkFindings.h"
#include "networks/GravityForest.h"

namespace pipenet {

void checkGravity(GravityDrawing& drawing, SystemUnderCheck& under) {
    drawing.turnTo(under.named().name);
    const std::vector<GravityStart> starts = gravityStarts(drawing);
    placeNetworks(under, GravityForest(drawing).grow(starts), false);
    drawing.turnTo(under.named().name);
    findCycles(under);
    findMergedWells(under);
}

} // namespace pipenet
