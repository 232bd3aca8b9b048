#include "platform/InstanceHandle.h"

#include <dlfcn.h>

namespace host {

HINSTANCE instanceOf(const void* address) {
    Dl_info info{};
    const bool found = dladdr(address, &info) != 0;
    return found ? static_cast<HINSTANCE>(info.dli_fbase) : nullptr;
}

std::string fileNameOf(HINSTANCE instance) {
    Dl_info info{};
    if (instance == nullptr || dladdr(instance, &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    const std::string path = info.dli_fname;
    return path.substr(path.find_last_of('/') + 1);
}

} // namespace host
