#include "texts/RunReading.h"

#include "gravity/GravityNetworkSearch.h"

#include <algorithm>

namespace pipenet {

PipeReading readPipe(const AcDbObjectId& pipe, const AcGePoint3d& start) {
    GravitySeg seg;
    seg.startPoint = start;
    tkvlt::ReadSegmentValues(seg, pipe);
    const bool reversed = seg.flowReversed != 0;
    return {pipe,
            seg.diameter,
            seg.material,
            seg.slope,
            reversed,
            reversed ? seg.endElevation : seg.startElevation,
            reversed ? seg.startElevation : seg.endElevation};
}

std::vector<RunReading> readRuns(const CheckReport& report) {
    std::vector<RunReading> readings;
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        for (const CheckedRun& run : report.networks[i].runs) {
            RunReading reading{static_cast<int>(i), &run, {}};
            for (const AcDbObjectId& pipe : run.pipes) {
                const bool isKnown =
                    std::any_of(reading.pipes.begin(), reading.pipes.end(),
                                [&pipe](const PipeReading& each) { return each.pipe == pipe; });
                if (!isKnown) {
                    reading.pipes.push_back(readPipe(pipe, run.start));
                }
            }
            readings.push_back(std::move(reading));
        }
    }
    return readings;
}

} // namespace pipenet
