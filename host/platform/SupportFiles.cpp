#include "platform/SupportFiles.h"

#include "platform/Encoding.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace host {
namespace {

namespace fs = std::filesystem;

/// Callers name files and no folders, so the folders are the process's.
std::vector<std::string>& givenFolders() {
    static std::vector<std::string> folders;
    return folders;
}

std::string nativePath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::vector<fs::path> searchFolders() {
    std::vector<fs::path> folders(givenFolders().begin(), givenFolders().end());
    const char* const system = std::getenv("TKVLT_SYSTEM_PATH");
    if (system != nullptr && *system != '\0') {
        folders.push_back(fs::path(nativePath(system)) / "Support");
    }
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (!error) {
        folders.push_back(program.parent_path() / "share/tkvlt/support");
        folders.push_back(program / "support");
    }
    return folders;
}

bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

} // namespace

void setSupportFolders(std::vector<std::string> folders) {
    for (std::string& folder : folders) {
        folder = nativePath(std::move(folder));
    }
    givenFolders() = std::move(folders);
}

std::string findSupportFile(std::wstring_view name) {
    const std::string path = nativePath(host_text::toUtf8(name));
    if (path.find('/') != std::string::npos) {
        return isFile(path) ? path : std::string();
    }
    for (const fs::path& folder : searchFolders()) {
        if (!path.empty() && isFile(folder / path)) {
            return (folder / path).string();
        }
    }
    return {};
}

} // namespace host
