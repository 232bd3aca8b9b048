#pragma once

#include "JsonText.h"

#include <chrono>
#include <string>

namespace pipenet {

/// Milliseconds that the parts of a command took.
struct Timing {
    double loadMs = 0.0;
    double searchMs = 0.0;
};

/// Counts the time until `milliseconds` is asked.
class Stopwatch {
public:
    double milliseconds() const {
        const auto passed = std::chrono::steady_clock::now() - begin_;
        return std::chrono::duration<double, std::milli>(passed).count();
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

/// Rounded to microseconds: more digits would be noise.
Json timingJson(const Timing& timing);
/// The last line of a table, with its line end.
std::string timingLine(const Timing& timing);

} // namespace pipenet
