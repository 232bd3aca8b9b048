#include "Progress.h"

#include "OneLine.h"

#include <chrono>
#include <fmt/format.h>
#include <unistd.h>

namespace pipenet {

Progress::Progress(std::string what) : what_(std::move(what)) {
    if (::isatty(STDERR_FILENO) != 0) {
        thread_ = std::thread([this] { run(); });
    }
}

Progress::~Progress() {
    if (thread_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            stop_ = true;
        }
        ended_.notify_one();
        thread_.join();
    }
}

void Progress::run() {
    std::unique_lock lock(mutex_);
    int seconds = 0;
    while (!ended_.wait_for(lock, std::chrono::seconds(1), [this] { return stop_; })) {
        ++seconds;
        say(fmt::format("\r\x1b[Kpipenet: {} ... {} s", what_, seconds));
    }
    if (seconds > 0) {
        say("\r\x1b[K");
    }
}

} // namespace pipenet
