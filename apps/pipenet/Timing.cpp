#include "Timing.h"

#include <cmath>
#include <fmt/format.h>

namespace pipenet {

namespace {

double rounded(double milliseconds) {
    return std::round(milliseconds * 1000.0) / 1000.0;
}

} // namespace

Json timingJson(const Timing& timing) {
    return {{"load_ms", rounded(timing.loadMs)}, {"search_ms", rounded(timing.searchMs)}};
}

std::string timingLine(const Timing& timing) {
    return fmt::format("Loaded in {:.3f} ms, searched in {:.3f} ms\n", timing.loadMs,
                       timing.searchMs);
}

} // namespace pipenet
