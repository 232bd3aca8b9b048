#include "GravityCheck.h"

#include "faults/Crossings.h"
#include "faults/GravityEnds.h"
#include "faults/NetworkFindings.h"
#include "faults/ShortPipes.h"
#include "networks/GravityForest.h"

namespace pipenet {

void checkGravity(GravityDrawing& drawing, SystemUnderCheck& under) {
    drawing.turnTo(under.named().name);
    const std::vector<GravityStart> starts = gravityStarts(drawing);
    placeNetworks(under, GravityForest(drawing).grow(starts), false);
    drawing.turnTo(under.named().name);
    const ShortPipes shortPipes(under);
    shortPipes.report(under);
    findCycles(under);
    findMergedWells(under);
    GravityEnds(drawing, shortPipes, under).report();
    findCrossings(drawing, under);
}

} // namespace pipenet
