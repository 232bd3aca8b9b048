#include "SettingsCheck.h"

#include "EmbeddedHost.h"
#include "Failure.h"
#include "KdpLine.h"
#include "SettingsPath.h"
#include "Siblings.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace pipenet {

namespace {

std::string settingsFile(const char* name) {
    const std::string folder = siblings::nativePath(host_text::toUtf8(GetSystemPath().view()));
    return siblings::joinPath(siblings::joinPath(folder, "SysCon"), name);
}

/// Empty when there is a regular file that can be opened, else the reason.
std::string obstacle(const std::string& path) {
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0) {
        return std::strerror(errno);
    }
    if (!S_ISREG(state.st_mode)) {
        return "not a regular file";
    }
    errno = 0;
    return std::ifstream(path) ? std::string() : std::string(std::strerror(errno));
}

std::string content(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

bool isUtf8(const std::string& text) {
    return host_text::toUtf8(host_text::fromUtf8(text)) == text;
}

/// The settings library says only that a file does not open; this finds the line that is to blame.
void throwFirstBadLine(const std::string& path) {
    std::istringstream lines(content(path));
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (!isUtf8(line)) {
            throw Failure(messages::kNotUtf8, path, number);
        }
        if (number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) {
            line.erase(0, 3);
        }
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (siblings::parseKdpLine(line).kind == siblings::KdpLineKind::malformed) {
            throw Failure(messages::kBadSettingsLine, path, number);
        }
    }
    throw Failure(messages::kUnreadable, path, "cannot be read");
}

void openOrThrow(const std::string& path) {
    CKDPEx file;
    if (file.Open(CString(host_text::fromUtf8(path).c_str())) == 0) {
        throwFirstBadLine(path);
    }
}

} // namespace

std::string pipeSystemsFile() {
    return settingsFile("PipeLineSetting.Kdp");
}

void checkSettings() {
    const std::string systems = pipeSystemsFile();
    if (const std::string reason = obstacle(systems); !reason.empty()) {
        throw Failure(messages::kNoSettings, systems, reason);
    }
    openOrThrow(systems);
    const std::string drawing = settingsFile("DrawingSetting.Kdp");
    struct stat state {};
    if (::stat(drawing.c_str(), &state) == 0) {
        if (const std::string reason = obstacle(drawing); !reason.empty()) {
            throw Failure(messages::kUnreadable, drawing, reason);
        }
        openOrThrow(drawing);
    }
}

} // namespace pipenet
