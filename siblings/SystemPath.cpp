#include "SystemPath.h"

#include "platform/ProgramFolder.h"

#include <cstdlib>

namespace siblings {

const std::string& SystemPath::current() {
    if (!given_.empty()) {
        return given_;
    }
    const char* variable = std::getenv("TKVLT_SYSTEM_PATH");
    if (variable != nullptr && *variable != '\0') {
        if (variable_ != variable) {
            variable_ = variable;
        }
        return variable_;
    }
    if (installed_.empty()) {
        installed_ = host::installedSettings(host::programFolder());
    }
    return installed_;
}

} // namespace siblings
