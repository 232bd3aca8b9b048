#include "texts/RunReading.h"

#include "gravity/GravityNetworkSearch.h"
#include "HandleText.h"

#include <algorithm>
#include <unordered_set>

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

namespace {

/// Whether a run has the values of this pipe.
bool speaksFor(const PipeReading& pipe, const CheckedNetwork& network, const CheckedRun& run) {
    return pipe.diameter == run.diameter && utf8(pipe.material) == run.material &&
           (network.isPressure || pipe.flowReversed == run.flowReversed);
}

RunReading readRun(const CheckedNetwork& network, const CheckedRun& run) {
    RunReading reading;
    reading.run = &run;
    std::unordered_set<AcDbObjectId> known;
    for (const AcDbObjectId& id : run.pipes) {
        if (known.insert(id).second) {
            reading.pipes.push_back(readPipe(id, run.start));
        }
    }
    const auto speaker =
        std::find_if(reading.pipes.begin(), reading.pipes.end(),
                     [&](const PipeReading& pipe) { return speaksFor(pipe, network, run); });
    if (speaker != reading.pipes.end()) {
        reading.speaker = static_cast<std::size_t>(speaker - reading.pipes.begin());
    }
    return reading;
}

} // namespace

std::vector<RunReading> readRuns(const CheckReport& report) {
    std::vector<RunReading> readings;
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        for (const CheckedRun& run : report.networks[i].runs) {
            if (!run.pipes.empty()) {
                readings.push_back(readRun(report.networks[i], run));
                readings.back().network = static_cast<int>(i);
            }
        }
    }
    return readings;
}

} // namespace pipenet
