#include "services/DeleteSeg.h"

namespace {

using IndexList = CArray<int, int>;

void DecrementFrom(int lowest, int& index) {
    if (index >= lowest) {
        --index;
    }
}

/// A segment stands once among those of a well, so the scan moves on behind it.
void RemoveOutSeg(Well& well, int segment) {
    for (INT_PTR i = 0; i < well.outSegs.GetSize(); ++i) {
        if (well.outSegs.GetAt(i) == segment) {
            well.outSegs.RemoveAt(i);
        }
    }
}

/// Hangs what starts at `endWell` on `startWell`, from which it then reaches back across the
/// removed stretch.
void HandOverOutSegs(GravitySearchObject& network, int segment, int startWell, int endWell) {
    Well& start = network.wells.ElementAt(startWell);
    const IndexList& handed = network.wells.GetAt(endWell).outSegs;
    const GravitySeg& removed = network.segs.GetAt(segment);
    const INT_PTR count = handed.GetSize();
    for (INT_PTR i = 0; i < count; ++i) {
        start.outSegs.Add(handed.GetAt(i));
    }
    for (INT_PTR i = 0; i < count; ++i) {
        GravitySeg& seg = network.segs.ElementAt(handed.GetAt(i));
        seg.startWell = startWell;
        seg.startPoint = removed.startPoint;
        seg.startEntity = removed.startEntity;
    }
}

void CloseGapOfSeg(CArray<Well, Well&>& wells, int segment) {
    for (INT_PTR i = 0; i < wells.GetSize(); ++i) {
        Well& well = wells.ElementAt(i);
        DecrementFrom(segment, well.inSeg); // that of the well that goes next as well
        for (INT_PTR k = 0; k < well.outSegs.GetSize(); ++k) {
            DecrementFrom(segment, well.outSegs.ElementAt(k));
        }
    }
}

void CloseGapOfWell(CArray<GravitySeg, GravitySeg&>& segs, int well) {
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        GravitySeg& seg = segs.ElementAt(i);
        DecrementFrom(well, seg.startWell);
        DecrementFrom(well, seg.endWell);
    }
}

/// Takes an index out of a path and closes its gap in those behind it.
void RemoveFromPath(IndexList& path, int removed) {
    INT_PTR i = 0;
    while (i < path.GetSize()) {
        if (path.GetAt(i) == removed) {
            path.RemoveAt(i);
        } else {
            DecrementFrom(removed, path.ElementAt(i));
            ++i;
        }
    }
}

void MoveRoot(int& rootWell, int startWell, int endWell) {
    if (rootWell > endWell) {
        --rootWell;
    } else if (rootWell == endWell) {
        rootWell = startWell; // as it was counted before the removal
    }
}

} // namespace

int DeleteSeg(GravitySearchObject*& network, int segment) {
    if (network == nullptr || segment < 0) {
        return 0;
    }
    const int startWell = network->segs.GetAt(segment).startWell;
    const int endWell = network->segs.GetAt(segment).endWell;
    RemoveOutSeg(network->wells.ElementAt(startWell), segment);
    HandOverOutSegs(*network, segment, startWell, endWell);
    network->segs.RemoveAt(segment);
    CloseGapOfSeg(network->wells, segment);
    network->wells.RemoveAt(endWell);
    CloseGapOfWell(network->segs, endWell);
    RemoveFromPath(network->pathSegs, segment);
    RemoveFromPath(network->pathWells, endWell);
    MoveRoot(network->rootWell, startWell, endWell);
    return 1;
}
