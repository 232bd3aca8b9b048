#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace pipenet {

/// Tells a person at a terminal that work goes on: a line on standard error from the first second
/// on, renewed each second and wiped out at the end. Writes nothing when standard error is no
/// terminal.
class Progress {
public:
    explicit Progress(std::string what);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

private:
    void run();

    std::string what_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool stop_ = false;
    std::thread thread_;
};

} // namespace pipenet
