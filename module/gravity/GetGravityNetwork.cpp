#include "gravity/GetGravityNetwork.h"

#include "gravity/GravityNetworkSearch.h"

int GetGravityNetwork(GravitySearchObject* object, AcDbObjectId& startId, AcDbObjectId& endId,
                      AcGePoint3d& point) {
    tkvlt::GravityNetworkSearch search(object, startId, endId, point);
    return search.Run();
}
