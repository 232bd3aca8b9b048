#include "frame/GetSearchInformation.h"

#include "frame/FlowKind.h"
#include "frame/GravitySearchObject.h"
#include "frame/SearchInformation.h"
#include "gravity/GetGravityNetwork.h"
#include "gravity/GravityNetworkSearch.h"
#include "pressure/GetPressureNetwork.h"
#include "pressure/PressureSearchObject.h"
#include "records/XdataKeys.h"

namespace {

/// The system of a picked entity. Only an empty text moves on to the next name: an entity that
/// carries the well name with an empty text is asked for the tank and the pipe name too.
CString PickedSystemName(const AcDbObjectId& entity) {
    CString name;
    for (const wchar_t* key : {xdata::kWellSystem, xdata::kTankSystem, xdata::kPipeSystem}) {
        ReadXdata(entity, key, name);
        if (!name.IsEmpty()) {
            break;
        }
    }
    return name;
}

void DeleteResult(SearchObject*& object) {
    delete object;
    object = nullptr;
}

int SearchGravity(SearchObject*& object, AcDbObjectId& startId, AcDbObjectId& endId,
                  AcGePoint3d& point, tkvlt::GravityNetworkSearch* collected) {
    auto* network = new GravitySearchObject;
    object = network;
    const int found = collected != nullptr ? collected->RunAgain(network, startId, endId, point)
                                           : GetGravityNetwork(network, startId, endId, point);
    if (found == 0) {
        DeleteResult(object);
        return 0;
    }
    return 1;
}

int SearchPressure(SearchObject*& object, AcDbObjectId& startId, AcGePoint3d& point) {
    auto* network = new PressureSearchObject;
    object = network;
    if (GetPressureNetwork(network->segs, startId, point, network->rootSeg) == 0) {
        DeleteResult(object);
        return 0;
    }
    return 1;
}

} // namespace

int tkvlt::SearchInformation(SearchObject*& object, AcDbObjectId& startId, AcDbObjectId& endId,
                             AcGePoint3d point, GravityNetworkSearch* collected) {
    const CString name = PickedSystemName(startId);
    if (name.IsEmpty()) {
        return 0;
    }
    switch (PelGetDirectionSytle(name)) {
    case 1:
        return SearchGravity(object, startId, endId, point, collected);
    case 0:
        return SearchPressure(object, startId, point);
    default:
        return 1;
    }
}

int GetSearchInformation(SearchObject*& object, AcDbObjectId& startId, AcDbObjectId& endId,
                         AcGePoint3d point) {
    return tkvlt::SearchInformation(object, startId, endId, point, nullptr);
}
