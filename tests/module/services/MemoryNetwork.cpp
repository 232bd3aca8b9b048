#include "module/services/MemoryNetwork.h"

namespace module_tests {

AcDbObjectId wellName(int number) {
    return AcDbObjectId::fromOldId(1 + number);
}

AcDbObjectId segName(int number) {
    return AcDbObjectId::fromOldId(1000001 + number);
}

AcGePoint3d wellPlace(int number) {
    return {10.0 * number, -1.0 * number, 0.5 * number};
}

void fillNetwork(GravitySearchObject& network, int wells,
                 const std::vector<std::pair<int, int>>& segs) {
    network.wells.SetSize(wells);
    for (int i = 0; i < wells; ++i) {
        network.wells[i].nodeEntity = wellName(i);
        network.wells[i].nodePoint = wellPlace(i);
    }
    network.segs.SetSize(static_cast<INT_PTR>(segs.size()));
    for (int i = 0; i < static_cast<int>(segs.size()); ++i) {
        const auto [start, end] = segs[static_cast<std::size_t>(i)];
        GravitySeg& seg = network.segs[i];
        seg.pipeIds.append(segName(i));
        seg.startWell = start;
        seg.endWell = end;
        seg.startEntity = wellName(start);
        seg.endEntity = wellName(end);
        seg.startPoint = wellPlace(start);
        seg.endPoint = wellPlace(end);
        network.wells[start].outSegs.Add(i);
        network.wells[end].inSeg = i;
    }
    network.rootWell = 0;
}

} // namespace module_tests
