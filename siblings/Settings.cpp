#include "Settings.h"

#include "DrawingRecords.h"
#include "platform/Encoding.h"
#include "platform/SupportFiles.h"
#include "SettingsFileCache.h"
#include "SettingsPath.h"
#include "SystemPath.h"

#include <utility>
#include <vector>

namespace siblings {

namespace {

/// Everything that the settings of this process come from. The getters take no argument, so the
/// sources have to be the process's own.
struct Sources {
    DrawingSettings given;
    SystemPath systemPath;
    DrawingRecords drawing;
    SettingsFileCache file;
};

Sources& sources() {
    static Sources instance;
    return instance;
}

/// The first source that has the value, else the built-in one.
template<typename T>
T firstFound(std::optional<T> DrawingSettings::*field, T builtIn) {
    Sources& all = sources();
    if (const auto& value = all.given.*field) {
        return *value;
    }
    if (const auto& value = all.drawing.current().*field) {
        return *value;
    }
    if (const auto& value = all.file.current(all.systemPath.current()).*field) {
        return *value;
    }
    return builtIn;
}

} // namespace

void setDrawingSettings(const DrawingSettings& settings) {
    sources().given = settings;
}

void clearDrawingSettings() {
    sources().given = {};
}

void setSystemPath(const std::string& path) {
    sources().systemPath.set(path);
    std::vector<std::string> support;
    if (!path.empty()) {
        support.push_back(joinPath(nativePath(path), "Support"));
    }
    host::setSupportFolders(std::move(support));
}

} // namespace siblings

CString GetSystemPath() {
    return CString(host_text::fromUtf8(siblings::sources().systemPath.current()));
}

double GetDwgScale() {
    return siblings::firstFound(&siblings::DrawingSettings::dwgScale, 1.0);
}

double GetVZDrawScale() {
    return siblings::firstFound(&siblings::DrawingSettings::drawScale, 1000.0);
}

double GetPipeBreakDist() {
    return siblings::firstFound(&siblings::DrawingSettings::pipeBreakDist, 0.1);
}

int GetPipeCalLongType() {
    return siblings::firstFound(&siblings::DrawingSettings::pipeCalLongType, 0);
}
