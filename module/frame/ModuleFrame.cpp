#include "frame/ModuleFrame.h"

#include "frame/AsdkDataManager.h"
#include "frame/CDocData.h"
#include "frame/ExtensionModule.h"

namespace tkvlt {

HINSTANCE instanceHandle = nullptr;

void InitialiseModule() {}

void UnloadModule() {}

namespace {

// Both outlive everything the module does, in this order: the manager is the first to register and
// the last to leave.
AsdkDataManager<CDocData> documentData;
ExtensionModule extensionModule;

} // namespace
} // namespace tkvlt

/// A failing attach does not keep the library from being loaded, so the result is always success.
extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        tkvlt::instanceHandle = instance;
        tkvlt::extensionModule.Attach(instance);
        InitAcUiDLL();
    } else if (reason == DLL_PROCESS_DETACH) {
        tkvlt::extensionModule.Detach();
    }
    return TRUE;
}
