#include "pressure/GetPressureNetwork.h"

#include "pressure/PressureNetworkSearch.h"

int GetPressureNetwork(CArray<PressureSeg, PressureSeg&>& segs, AcDbObjectId startId,
                       AcGePoint3d point, int& rootSeg) {
    tkvlt::PressureNetworkSearch search(segs, startId, point, rootSeg);
    return search.Run();
}
