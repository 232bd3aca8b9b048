#include "frame/NetworkPath.h"

#include <vector>

namespace tkvlt {

namespace {

void Append(CArray<int, int>& list, const std::vector<int>& indices) {
    for (const int index : indices) {
        list.Add(index);
    }
}

} // namespace

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
    std::vector<int> wells{well};
    std::vector<int> segs;
    // In a tree each step leads to another node. Callers may have changed the network since.
    while (well != 0) {
        const int seg = network.wells.GetAt(well).inSeg;
        segs.push_back(seg);
        well = network.segs.GetAt(seg).startWell;
        wells.push_back(well);
        if (static_cast<INT_PTR>(wells.size()) > network.wells.GetSize()) {
            return false;
        }
    }
    Append(network.pathWells, wells);
    Append(network.pathSegs, segs);
    return true;
}

} // namespace tkvlt
