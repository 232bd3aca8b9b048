// The last two steps of a search: the path from the end entity back to the root, and the order of
// the heights.

#include <utility>

#include "frame/NetworkPath.h"
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
    const int index = FindEndWell();
    return index >= 0 && AppendPathToRoot(*result, index) ? 1 : 0;
}

int GravityNetworkSearch::FindEndWell() {
    return endKind == kPipeEntity ? FindNodeBehindPipe(*result, *endId)
                                  : FindNodeOfBlock(*result, *endId);
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
