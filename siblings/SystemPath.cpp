#include "SystemPath.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace siblings {

namespace {

namespace fs = std::filesystem;

/// The folder of the running program; the current one where the system does not tell.
std::string programFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

} // namespace

std::string installedSettings(const std::string& programFolder) {
    const fs::path folder(programFolder);
    const std::string shared = (folder.parent_path() / "share/tkvlt/settings").string();
    const std::string own = (folder / "settings").string();
    std::error_code ignored;
    const bool useOwn = !fs::is_directory(shared, ignored) && fs::is_directory(own, ignored);
    return useOwn ? own : shared;
}

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
        installed_ = installedSettings(programFolder());
    }
    return installed_;
}

} // namespace siblings
