#include "platform/SupportFiles.h"

#include "platform/Encoding.h"
#include "platform/ProgramFolder.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

namespace host {
namespace {

namespace fs = std::filesystem;

std::string nativePath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// Callers name files and no folders, so the folders are the process's.
class Folders {
public:
    static Folders& instance() {
        // Never destroyed: texts are measured, and their fonts sought, to the end of the process.
        static auto* const folders = new Folders;
        return *folders;
    }

    void give(std::vector<std::string> folders) {
        const std::lock_guard lock(mutex_);
        given_ = std::move(folders);
        ++version_;
    }

    std::uint64_t version() {
        const std::lock_guard lock(mutex_);
        readVariable();
        return version_;
    }

    std::vector<std::string> all() {
        const std::lock_guard lock(mutex_);
        readVariable();
        std::vector<std::string> folders = given_;
        if (folders.empty()) {
            const std::string system = variable_.empty() ? installedSettings(program_) : variable_;
            folders.push_back((fs::path(system) / "Support").string());
        }
        folders.push_back((fs::path(program_).parent_path() / "share/tkvlt/support").string());
        folders.push_back((fs::path(program_) / "support").string());
        return folders;
    }

private:
    void readVariable() {
        const char* const value = std::getenv("TKVLT_SYSTEM_PATH");
        std::string current = nativePath(value == nullptr ? "" : value);
        if (current != variable_) {
            variable_ = std::move(current);
            ++version_;
        }
    }

    std::mutex mutex_;
    std::vector<std::string> given_;
    std::string variable_;
    std::string program_ = programFolder();
    std::uint64_t version_ = 0;
};

bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

bool isSpelledAlike(const std::string& a, const std::wstring& b) {
    return host_text::compareNoCase(host_text::fromUtf8(a).c_str(), b.c_str()) == 0;
}

/// The file of that name, in any case, in a folder; empty when there is none.
std::string fileIn(const fs::path& folder, const std::string& name) {
    const fs::path exact = folder / name;
    if (name.empty() || isFile(exact)) {
        return name.empty() ? std::string() : exact.string();
    }
    const std::wstring wanted = host_text::fromUtf8(name);
    std::string found;
    std::error_code error;
    fs::directory_iterator each(folder, error);
    for (; !error && each != fs::directory_iterator(); each.increment(error)) {
        const std::string path = each->path().string();
        const bool isFirst = found.empty() || path < found;
        if (isFirst && isSpelledAlike(each->path().filename().string(), wanted) && isFile(path)) {
            found = path;
        }
    }
    return found;
}

} // namespace

void setSupportFolders(std::vector<std::string> folders) {
    for (std::string& folder : folders) {
        folder = nativePath(std::move(folder));
    }
    Folders::instance().give(std::move(folders));
}

std::vector<std::string> supportFolders() {
    return Folders::instance().all();
}

std::uint64_t supportFoldersVersion() {
    return Folders::instance().version();
}

std::string findSupportFile(std::wstring_view name) {
    const std::string path = nativePath(host_text::toUtf8(name));
    if (path.find('/') != std::string::npos) {
        return fileIn(fs::path(path).parent_path(), fs::path(path).filename().string());
    }
    for (const std::string& folder : supportFolders()) {
        std::string found = fileIn(folder, path);
        if (!found.empty()) {
            return found;
        }
    }
    return {};
}

} // namespace host
