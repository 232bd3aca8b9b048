// A sibling module: when it is loaded it asks for the network of the first tank of the current
// drawing and prints it.

#include "TKVltSearchModule18.h"

#include <cstdio>
#include <memory>

static AcDbObjectId firstTank() {
    wchar_t application[] = L"池体";
    resbuf name{};
    name.restype = 1001;
    name.resval.rstring = application;
    resbuf marker{};
    marker.restype = -3;
    marker.rbnext = &name;
    ads_name set, entity;
    AcDbObjectId id;
    if (acedSSGet(L"X", nullptr, nullptr, &marker, set) == RTNORM) {
        acedSSName(set, 0, entity);
        acdbGetObjectId(id, entity);
        acedSSFree(set);
    }
    return id;
}

static void printNetwork(const GravitySearchObject& network) {
    std::printf("%td nodes, %td segments\n", network.wells.GetSize(), network.segs.GetSize());
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        const GravitySeg& seg = network.segs[i];
        std::printf("%d %d %d\n", seg.startWell, seg.endWell, seg.diameter);
    }
}

extern "C" __attribute__((visibility("default"))) int acrxGetApiVersion() {
    return AcRx::kApiVersion;
}

extern "C" __attribute__((visibility("default"))) int acrxEntryPoint(int message, void* appId) {
    if (message == AcRx::kInitAppMsg) {
        AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"))->unlockApplication(appId);
        SearchObject* object = nullptr;
        AcDbObjectId start = firstTank(), none;
        GetSearchInformation(object, start, none, AcGePoint3d());
        const std::unique_ptr<SearchObject> owner(object);
        if (object != nullptr && object->IsKindOf(RUNTIME_CLASS(GravitySearchObject))) {
            printNetwork(static_cast<const GravitySearchObject&>(*object));
        }
    }
    return AcRx::kRetOK;
}
