// The last two steps of a search: the path from the end entity back to the root, and the order of
// the heights.

#include <utility>

#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

int GravityNetworkSearch::TraceEndPath() {
    if (result->wells.GetSize() < 2) {
        return 0;
    }
    result->rootWell = 0;
    if (endId->isNull()) {
        return 1;
    }
    int index = FindEndWell();
    if (index < 0) {
        return 0;
    }
    result->pathWells.Add(index);
    while (index != 0) {
        const int seg = result->wells.ElementAt(index).inSeg;
        result->pathSegs.Add(seg);
        index = result->segs.ElementAt(seg).startWell;
        result->pathWells.Add(index);
    }
    return 1;
}

int GravityNetworkSearch::FindEndWell() {
    return endKind == kPipeEntity ? FindEndPipe() : FindEndBlock();
}

/// The root is left out, and with it what has been merged into the root. A merged end block takes
/// over as its node's entity.
int GravityNetworkSearch::FindEndBlock() {
    for (int i = 1; i < static_cast<int>(result->wells.GetSize()); ++i) {
        Well& node = result->wells.ElementAt(i);
        if (node.nodeEntity == *endId) {
            return i;
        }
        int merged = 0;
        if (node.mergedEntities.find(*endId, merged)) {
            node.mergedEntities.append(node.nodeEntity);
            node.nodeEntity = *endId;
            node.mergedEntities.removeAt(merged);
            return i;
        }
    }
    return -1;
}

int GravityNetworkSearch::FindEndPipe() const {
    for (int i = 0; i < static_cast<int>(result->segs.GetSize()); ++i) {
        const GravitySeg& seg = result->segs.GetAt(i);
        if (seg.pipeIds.contains(*endId)) {
            return seg.endWell;
        }
    }
    return -1;
}

void GravityNetworkSearch::OrderSegHeights() {
    for (int i = 0; i < static_cast<int>(result->segs.GetSize()); ++i) {
        GravitySeg& seg = result->segs.ElementAt(i);
        if (seg.startElevation > seg.endElevation) {
            std::swap(seg.startElevation, seg.endElevation);
        }
    }
}

} // namespace tkvlt
