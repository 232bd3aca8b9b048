// A sibling module: when it is loaded it prints the network of the first tank of the drawing.

#include "TKVltSearchModule18.h"

#include <cstdio>
#include <memory>

static AcDbObjectId firstTank() {
    const std::unique_ptr<resbuf, int (*)(resbuf*)> filter(acutBuildList(-3, 1001, L"池体", 0),
                                                           &acutRelRb);
    ads_name set, entity;
    AcDbObjectId id;
    if (acedSSGet(L"X", nullptr, nullptr, filter.get(), set) == RTNORM) {
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
        auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"));
        linker->unlockApplication(appId);
        linker->registerAppMDIAware(appId);
        SearchObject* object = nullptr;
        AcDbObjectId start = firstTank(), none;
        const int result = GetSearchInformation(object, start, none, AcGePoint3d());
        const std::unique_ptr<SearchObject> owner(object);
        if (result != 1 || !object || !object->IsKindOf(RUNTIME_CLASS(GravitySearchObject))) {
            return AcRx::kRetError;
        }
        printNetwork(static_cast<const GravitySearchObject&>(*object));
    }
    return AcRx::kRetOK;
}
