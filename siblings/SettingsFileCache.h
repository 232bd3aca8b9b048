#pragma once

#include "Settings.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <sys/types.h>

namespace siblings {

/// The drawing settings as the file `SysCon\DrawingSetting.Kdp` gives them, read again only when
/// the file has changed.
class SettingsFileCache {
public:
    /// The values of the file in this system path; what the file does not have, or a file that is
    /// missing or malformed, leaves them open. Cost: a few nanoseconds within one tick of the
    /// coarse clock, else one question to the file system.
    const DrawingSettings& current(const std::string& systemPath);

private:
    /// What the file system tells about a file; equal states mean equal content.
    struct State {
        bool present = false;
        dev_t device = 0;
        ino_t node = 0;
        off_t size = 0;
        std::int64_t written = 0; ///< nanoseconds
        std::int64_t changed = 0; ///< nanoseconds

        friend bool operator==(const State&, const State&) = default;
    };

    static State stateOf(const std::string& path);
    bool mayAnswerFromMemory();
    void refresh();

    std::string systemPath_;
    std::string path_;
    State state_;
    bool settled_ = false;
    std::int64_t tick_ = 0;
    int checksInTick_ = 0;
    DrawingSettings values_;
};

} // namespace siblings
