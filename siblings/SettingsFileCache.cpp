#include "SettingsFileCache.h"

#include "CKDPEx.h"
#include "platform/Encoding.h"
#include "SettingsPath.h"

#include <sys/stat.h>

namespace siblings {

namespace {

constexpr int checksPerTick = 64;

/// A file that was changed this short a time ago may change once more without its times telling:
/// they advance with the system's coarse clock. In nanoseconds.
constexpr std::int64_t settlingTime = 50'000'000;

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::int64_t now(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return nanoseconds(time);
}

template<typename T>
std::optional<T> valueOf(const CKDPEx& file, const wchar_t* key) {
    T value{};
    return file.GetSubValue(key, value) != 0 ? std::optional<T>(value) : std::nullopt;
}

DrawingSettings read(const std::string& path) {
    CKDPEx file;
    if (file.Open(CString(host_text::fromUtf8(path))) == 0) {
        return {};
    }
    return {valueOf<double>(file, L"DwgScale"), valueOf<double>(file, L"DrawScale"),
            valueOf<double>(file, L"PipeBreakDist"), valueOf<int>(file, L"PipeCalLongType")};
}

} // namespace

SettingsFileCache::State SettingsFileCache::stateOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return {};
    }
    return {true,
            status.st_dev,
            status.st_ino,
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

const DrawingSettings& SettingsFileCache::current(const std::string& systemPath) {
    if (path_.empty() || systemPath != systemPath_) {
        systemPath_ = systemPath;
        path_ = joinPath(nativePath(systemPath), "SysCon/DrawingSetting.Kdp");
        refresh();
    } else if (!mayAnswerFromMemory()) {
        refresh();
    }
    return values_;
}

bool SettingsFileCache::mayAnswerFromMemory() {
    const std::int64_t tick = now(CLOCK_MONOTONIC_COARSE);
    if (tick != tick_) {
        tick_ = tick;
        checksInTick_ = 0;
    }
    return ++checksInTick_ > checksPerTick;
}

void SettingsFileCache::refresh() {
    const State state = stateOf(path_);
    if (settled_ && state == state_) {
        return;
    }
    // The state is taken before the content: a change in between shows as another state next time.
    values_ = state.present ? read(path_) : DrawingSettings();
    state_ = state;
    settled_ = !state.present || now(CLOCK_REALTIME_COARSE) - state.changed > settlingTime;
}

} // namespace siblings
