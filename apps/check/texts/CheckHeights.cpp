#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// How far a pipe rises in the direction of its water, metres; not above 0 for one that falls.
double riseOf(const PipeReading& pipe) {
    return pipe.downstream - pipe.upstream;
}

bool isReadable(const PipeReading& pipe, const UnreadablePipes& unreadable) {
    return unreadable.heights.count(pipe.pipe) == 0 && unreadable.flows.count(pipe.pipe) == 0;
}

std::string sentenceOf(const std::vector<AcDbObjectId>& pipes, const PipeReading& steepest) {
    return fmt::format(
        "the water of {} would run uphill: by its flow text it enters {} at {:.6g} m "
        "and leaves it at {:.6g} m; correct the elevations or the flow text",
        namesOf(pipes, 4), nameOf(steepest.pipe), steepest.upstream, steepest.downstream);
}

} // namespace

void checkHeights(TextCheck& check) {
    for (const RunReading& reading : check.runs) {
        const CheckedNetwork& network =
            check.report.networks[static_cast<std::size_t>(reading.network)];
        if (network.isPressure) {
            continue;
        }
        Finding finding;
        const PipeReading* steepest = nullptr;
        for (const PipeReading& pipe : reading.pipes) {
            if (!isReadable(pipe, check.unreadable) || !(riseOf(pipe) > 0.0)) {
                continue;
            }
            const bool isSteepest = steepest == nullptr || riseOf(pipe) > riseOf(*steepest);
            steepest = isSteepest ? &pipe : steepest;
            finding.entities.insert(isSteepest ? finding.entities.begin() : finding.entities.end(),
                                    pipe.pipe);
        }
        if (steepest == nullptr) {
            continue;
        }
        finding.code = "heights-against-flow";
        finding.severity = Severity::warning;
        finding.system = network.system;
        finding.network = reading.network;
        finding.place = placeOf(steepest->pipe);
        finding.measured = riseOf(*steepest);
        finding.limit = 0.0;
        finding.unit = "m";
        finding.sentence = sentenceOf(finding.entities, *steepest);
        check.report.findings.push_back(std::move(finding));
    }
}

} // namespace pipenet
