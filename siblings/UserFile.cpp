#include "UserFile.h"

#include "CKDPEx.h"
#include "platform/Encoding.h"
#include "platform/HostEvents.h"
#include "Settings.h"
#include "SettingsPath.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;

/// The file between its opening and its closing.
struct OpenUserDefaults {
    CKDPEx values;
    std::string path; ///< as this system spells it
    bool changed = false;
};

/// The interface takes no argument, so the open file has to be the process's own.
std::unique_ptr<OpenUserDefaults>& openFile() {
    static std::unique_ptr<OpenUserDefaults> file;
    return file;
}

CString wide(const std::string& path) {
    return CString(host_text::fromUtf8(path));
}

/// Whether there is something at the path, be it readable or not.
bool isThere(const std::string& path) {
    std::error_code error;
    return fs::status(path, error).type() != fs::file_type::not_found;
}

void announce(const wchar_t* what, const std::wstring& rest = {}) {
    if (host::isListening()) {
        host::announce(std::wstring(L"user ") + what + rest);
    }
}

} // namespace

int OpenUserFile() {
    announce(L"open");
    if (openFile() == nullptr) {
        auto file = std::make_unique<OpenUserDefaults>();
        const std::string folder = siblings::nativePath(host_text::toUtf8(GetSystemPath().view()));
        file->path = siblings::joinPath(folder, "SysCon/User.Kdp");
        if (file->values.Open(wide(file->path)) != 0 || !isThere(file->path)) {
            openFile() = std::move(file);
        }
    }
    return openFile() != nullptr ? 1 : 0;
}

int GetDefaultValue(const CString& key, int& value) {
    announce(L"get ", std::wstring(key.view()));
    return openFile() != nullptr ? openFile()->values.GetSubValue(key, value) : 0;
}

int SetDefaultValue(const CString& key, int value) {
    announce(L"set ", std::wstring(key.view()) + L" " + std::to_wstring(value));
    if (openFile() == nullptr) {
        return 0;
    }
    openFile()->values.SetSubValueW(key, value);
    openFile()->changed = true;
    return 1;
}

int CloseUserFile() {
    announce(L"close");
    const std::unique_ptr<OpenUserDefaults> file = std::move(openFile());
    if (file == nullptr || !file->changed) {
        return file != nullptr ? 1 : 0;
    }
    std::error_code ignored; // without the folder the saving says so
    fs::create_directory(fs::path(file->path).parent_path(), ignored);
    return file->values.Save(wide(file->path));
}
