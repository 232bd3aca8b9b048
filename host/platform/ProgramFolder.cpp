#include "platform/ProgramFolder.h"

#include <filesystem>
#include <system_error>

namespace host {

namespace fs = std::filesystem;

std::string programFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

std::string installedSettings(const std::string& programFolder) {
    const fs::path folder(programFolder);
    const std::string shared = (folder.parent_path() / "share/tkvlt/settings").string();
    const std::string own = (folder / "settings").string();
    std::error_code ignored;
    const bool useOwn = !fs::is_directory(shared, ignored) && fs::is_directory(own, ignored);
    return useOwn ? own : shared;
}

} // namespace host
