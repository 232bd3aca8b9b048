// A module that tries to unload itself and to load itself again while it handles a message, and
// tells what came of it.

#include "EmbeddedHost.h"

#define TEST_EXPORT __attribute__((visibility("default")))

extern "C" {

TEST_EXPORT int acrxGetApiVersion() {
    return AcRx::kApiVersion;
}

TEST_EXPORT int acrxEntryPoint(int /*message*/, void* appId) {
    auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
    linker->unlockApplication(appId);
    linker->registerAppMDIAware(appId);
    const auto tell = [&](bool done) {
        host::announce(done ? L"done" : host_text::fromUtf8(linker->lastError()));
    };
    tell(linker->unloadModule(L"test_self_module.so"));
    tell(linker->loadModule(L"test_self_module.so", false));
    return AcRx::kRetOK;
}
}
