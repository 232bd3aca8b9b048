// A library with one of the two entries of a module.

extern "C" __attribute__((visibility("default"))) int acrxGetApiVersion() {
    return 0x120000;
}
