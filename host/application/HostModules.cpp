#include "application/HostModules.h"

#include "application/AcRxDictionary.h"
#include "application/AcRxDynamicLinker.h"
#include "platform/Encoding.h"

namespace host {

namespace {

AcRxDynamicLinker& linker() {
    return *AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

bool report(bool done, std::string& error) {
    if (!done) {
        error = linker().lastError();
    }
    return done;
}

} // namespace

bool loadModule(const std::string& path, std::string& error) {
    return report(linker().loadModule(host_text::fromUtf8(path).c_str(), false), error);
}

bool unloadModule(const std::string& path, std::string& error) {
    return report(linker().unloadModule(host_text::fromUtf8(path).c_str()), error);
}

void* moduleId(const std::string& path) {
    return linker().applicationId(path);
}

std::vector<std::string> loadedModules() {
    return linker().moduleNames();
}

} // namespace host
