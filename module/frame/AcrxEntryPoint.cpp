#include "frame/AcrxEntryPoint.h"

#include "frame/ModuleFrame.h"

namespace {

constexpr int kApiVersion = 0x120000;

AcRxDynamicLinker* DynamicLinker() {
    return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_T("DynamicLinker")));
}

} // namespace

int acrxEntryPoint(int message, void* appId) {
    switch (message) {
    case AcRx::kInitAppMsg:
        DynamicLinker()->unlockApplication(appId);
        DynamicLinker()->registerAppMDIAware(appId);
        tkvlt::InitialiseModule();
        break;
    case AcRx::kUnloadAppMsg:
        tkvlt::UnloadModule();
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}

int acrxGetApiVersion() {
    return kApiVersion;
}
