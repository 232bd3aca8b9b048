// A module for the linker to load. Definitions of the build say how it behaves:
// TEST_VERSION what it was built against, TEST_ANSWER what it answers to the load message,
// TEST_UNLOCKS and TEST_MDI_AWARE what it declares at its load, TEST_THROWS_AT at which message it
// throws, 0 at none.

#include "EmbeddedHost.h"

#include <exception>

#define TEST_EXPORT __attribute__((visibility("default")))

namespace {

/// Of the module's own code: nothing of it may be left when the module is unmapped.
class Trouble : public std::exception {
public:
    const char* what() const noexcept override { return "trouble"; }
};

} // namespace

extern "C" {

/// The id of the last message.
TEST_EXPORT extern void* testAppId;
void* testAppId = nullptr;

TEST_EXPORT int acrxGetApiVersion() {
    return TEST_VERSION;
}

TEST_EXPORT int acrxEntryPoint(int message, void* appId) {
    testAppId = appId;
    if (message == TEST_THROWS_AT) {
        throw Trouble();
    }
    if (message != AcRx::kInitAppMsg) {
        return AcRx::kRetOK;
    }
    auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
    if (TEST_UNLOCKS) {
        linker->unlockApplication(appId);
    }
    if (TEST_MDI_AWARE) {
        linker->registerAppMDIAware(appId);
    }
    return TEST_ANSWER;
}
}
