// A run takes its values from one of its pipes alone, whatever the others say. Where they disagree,
// what the run is said to be hangs on the order of the entities in the drawing.

#include "HandleText.h"
#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// Pipes that say otherwise about one thing than the one whose values their run has.
struct Disagreement {
    std::string told;  ///< what that one says
    std::string other; ///< what the first of the others says
    std::vector<AcDbObjectId> pipes;
};

/// @param isReadable whether a pipe has a say
/// @param say what a pipe says, as text
template<class IsReadable, class Say>
Disagreement disagreement(const RunReading& reading, const IsReadable& isReadable, const Say& say) {
    Disagreement found;
    if (!isReadable(reading.speakingPipe())) {
        return found;
    }
    found.told = say(reading.speakingPipe());
    for (const PipeReading& pipe : reading.pipes) {
        if (!isReadable(pipe) || say(pipe) == found.told) {
            continue;
        }
        if (found.pipes.empty()) {
            found.other = say(pipe);
        }
        found.pipes.push_back(pipe.pipe);
    }
    return found;
}

Disagreement aboutSize(const RunReading& reading, const UnreadablePipes& unreadable) {
    return disagreement(
        reading,
        [&](const PipeReading& pipe) { return unreadable.diameters.count(pipe.pipe) == 0; },
        [](const PipeReading& pipe) { return fmt::format("DN{}", pipe.diameter); });
}

Disagreement aboutMaterial(const RunReading& reading) {
    return disagreement(
        reading, [](const PipeReading&) { return true; },
        [](const PipeReading& pipe) {
            return pipe.material.IsEmpty() ? std::string("no material") : utf8(pipe.material);
        });
}

Disagreement aboutFlow(const RunReading& reading, const UnreadablePipes& unreadable) {
    return disagreement(
        reading, [&](const PipeReading& pipe) { return unreadable.flows.count(pipe.pipe) == 0; },
        [](const PipeReading& pipe) { return pipe.flowReversed ? "one way" : "the other way"; });
}

/// Each pipe once, in the order of the disagreements.
void addPipes(std::vector<AcDbObjectId>& to, const Disagreement& from) {
    for (const AcDbObjectId& pipe : from.pipes) {
        if (std::find(to.begin(), to.end(), pipe) == to.end()) {
            to.push_back(pipe);
        }
    }
}

std::string sentenceOf(const AcDbObjectId& speaker, const std::vector<AcDbObjectId>& others,
                       const Disagreement& size, const Disagreement& material,
                       const Disagreement& flow) {
    std::string what;
    for (const auto& [name, each] : {std::pair("size", &size), std::pair("material", &material)}) {
        if (!each->pipes.empty()) {
            what += fmt::format("{}{} ({}, not {})", what.empty() ? "" : " and ", name, each->other,
                                each->told);
        }
    }
    if (!flow.pipes.empty()) {
        what += (what.empty() ? "" : " and ") + std::string("the way of the water");
    }
    return fmt::format(
        "{} {} not agree with {} of the same run about {}, and the run has the values "
        "of {} alone; make them agree, or part the run with a well",
        namesOf(others, 4), others.size() == 1 ? "does" : "do", nameOf(speaker), what,
        nameOf(speaker));
}

} // namespace

void checkPieces(TextCheck& check) {
    for (const RunReading& reading : check.runs) {
        if (reading.pipes.size() < 2) {
            continue;
        }
        const CheckedNetwork& network =
            check.report.networks[static_cast<std::size_t>(reading.network)];
        const Disagreement size = aboutSize(reading, check.unreadable);
        const Disagreement material = aboutMaterial(reading);
        const Disagreement flow =
            network.isPressure ? Disagreement() : aboutFlow(reading, check.unreadable);
        Finding finding;
        for (const Disagreement* each : {&flow, &size, &material}) {
            addPipes(finding.entities, *each);
        }
        if (finding.entities.empty()) {
            continue;
        }
        const AcDbObjectId speaker = reading.speakingPipe().pipe;
        finding.code = "pieces-differ";
        finding.severity = flow.pipes.empty() ? Severity::warning : Severity::error;
        finding.system = network.system;
        finding.network = reading.network;
        finding.place = placeOf(finding.entities.front());
        finding.sentence = sentenceOf(speaker, finding.entities, size, material, flow);
        finding.entities.push_back(speaker);
        for (const AcDbObjectId& pipe : flow.pipes) {
            check.unreadable.flows.insert(pipe);
        }
        check.report.findings.push_back(std::move(finding));
    }
}

} // namespace pipenet
