// The lowering runs from well to well. Each segment that still stands above the limit sinks until
// its lower top is at the limit; its higher top, sunk by as much, is the limit at its far well.

#include "services/PropagateLowering.h"

#include <vector>

#include "records/XdataKeys.h"
#include "services/PipeHeights.h"

namespace tkvlt {

namespace {

/// A well on the way from the first one, and which of its segments comes next.
struct WellOnTheWay {
    int well;
    double limit;
    INT_PTR nextOut = 0;
};

/// The tops of a segment's pipes, metres.
struct Tops {
    double low;
    double high;
};

/// A finished network has the lower height of each segment first, whichever end that belongs to.
Tops TopsOf(const GravitySeg& seg) {
    return {seg.startElevation + DiameterInMetres(seg), seg.endElevation + DiameterInMetres(seg)};
}

/// Keeps the difference between the two.
Tops SunkTo(double limit, const Tops& tops) {
    const double excess = tops.low - limit;
    return {limit, tops.high - excess};
}

/// Every pipe gets the same two heights. Which key has the lower one follows from the pipe's flow
/// text alone: the start's for "SE", the end's for any other, so that a pipe that falls along its
/// flow comes out with its two heights exchanged.
void WriteSegmentHeights(const GravitySeg& seg, const Tops& tops) {
    const CString low = HeightText(tops.low - DiameterInMetres(seg));
    const CString high = HeightText(tops.high - DiameterInMetres(seg));
    for (int i = 0; i < seg.pipeIds.length(); ++i) {
        const AcDbObjectId& pipe = seg.pipeIds.at(i);
        if (XdataText(pipe, xdata::kFlow).Compare(xdata::kStartToEnd) == 0) {
            WriteHeights(pipe, low, high);
        } else {
            WriteHeights(pipe, high, low);
        }
    }
}

/// Lowers one segment. False when the branch ends here; else `nextLimit` is the limit at its far
/// well.
bool LowerSegment(const GravitySeg& seg, double limit, double& nextLimit) {
    if (seg.flowReversed != 0) {
        return false;
    }
    const Tops tops = TopsOf(seg);
    if (!(tops.low > limit)) {
        return false;
    }
    const Tops sunk = SunkTo(limit, tops);
    WriteSegmentHeights(seg, sunk);
    nextLimit = sunk.high;
    return true;
}

} // namespace

int PropagateLowering(GravitySearchObject& network, int well, double limit) {
    // An explicit stack: a branch may be as deep as the network has wells.
    std::vector<WellOnTheWay> way{{well, limit}};
    while (!way.empty()) {
        WellOnTheWay& here = way.back();
        const CArray<int, int>& outSegs = network.wells.GetAt(here.well).outSegs;
        if (here.nextOut == outSegs.GetSize()) {
            way.pop_back();
            continue;
        }
        const GravitySeg& seg = network.segs.GetAt(outSegs.GetAt(here.nextOut++));
        double nextLimit = 0.0;
        if (LowerSegment(seg, here.limit, nextLimit)) {
            way.push_back({seg.endWell, nextLimit});
        }
    }
    return 1;
}

} // namespace tkvlt
