#include "frame/NetworkPath.h"

namespace tkvlt {

int FindNodeOfBlock(GravitySearchObject& network, const AcDbObjectId& block) {
    for (int i = 1; i < static_cast<int>(network.wells.GetSize()); ++i) {
        Well& node = network.wells.ElementAt(i);
        if (node.nodeEntity == block) {
            return i;
        }
        int merged = 0;
        if (node.mergedEntities.find(block, merged)) {
            const AcDbObjectId found = block; // it may stand in the list that grows now
            node.mergedEntities.append(node.nodeEntity);
            node.nodeEntity = found;
            node.mergedEntities.removeAt(merged);
            return i;
        }
    }
    return -1;
}

int FindNodeBehindPipe(const GravitySearchObject& network, const AcDbObjectId& pipe) {
    for (int i = 0; i < static_cast<int>(network.segs.GetSize()); ++i) {
        const GravitySeg& seg = network.segs.GetAt(i);
        if (seg.pipeIds.contains(pipe)) {
            return seg.endWell;
        }
    }
    return -1;
}

bool AppendPathToRoot(GravitySearchObject& network, int well) {
    const INT_PTR wellsBefore = network.pathWells.GetSize();
    const INT_PTR segsBefore = network.pathSegs.GetSize();
    // In a tree each step leads to another node. Callers may have changed the network since.
    for (INT_PTR left = network.wells.GetSize(); left > 0; --left) {
        network.pathWells.Add(well);
        if (well == 0) {
            return true;
        }
        const int seg = network.wells.GetAt(well).inSeg;
        network.pathSegs.Add(seg);
        well = network.segs.GetAt(seg).startWell;
    }
    network.pathWells.SetSize(wellsBefore);
    network.pathSegs.SetSize(segsBefore);
    return false;
}

} // namespace tkvlt
