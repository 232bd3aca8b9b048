// A module that throws what is no exception when it is asked for its version.

#define TEST_EXPORT __attribute__((visibility("default")))

extern "C" {

TEST_EXPORT int acrxGetApiVersion() {
    throw 7;
}

TEST_EXPORT int acrxEntryPoint(int /*message*/, void* /*appId*/) {
    return 0;
}
}
