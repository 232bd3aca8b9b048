#include "SearchCommand.h"

#include "NetworkJson.h"
#include "NetworkSearch.h"
#include "NetworkTable.h"
#include "PressureTable.h"
#include "Progress.h"
#include "Refusal.h"
#include "svg/NetworkPicture.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

std::string outcomeTable(const SearchOutcome& outcome) {
    if (const GravitySearchObject* network = gravityNetwork(outcome)) {
        return networkTable(*network);
    }
    if (PressureSearchObject* network = pressureNetwork(outcome)) {
        return pressureTable(*network);
    }
    return fmt::format("No network (result {})\n", outcome.result);
}

void drawOutcome(const Drawing& drawing, const SearchOutcome& outcome, const std::string& path) {
    const Progress progress("drawing " + path);
    if (const GravitySearchObject* network = gravityNetwork(outcome)) {
        drawScene(makeScene(drawing, *network), drawing.name(), path);
    } else if (PressureSearchObject* pressure = pressureNetwork(outcome)) {
        drawScene(makeScene(drawing, *pressure), drawing.name(), path);
    }
}

} // namespace

Answer runSearch(const Drawing& drawing, const Options& options) {
    Answer answer;
    const auto found = std::make_shared<SearchOutcome>();
    SearchOutcome& outcome = *found;
    const Stopwatch watch;
    {
        const Progress progress("searching " + drawing.name());
        const SearchRequest request = searchRequest(drawing, options);
        if (!request.start.isNull()) {
            outcome = searchNetwork(request);
        }
        answer.timing.searchMs = watch.milliseconds();
        answer.refusal = refusalOf(drawing, request, outcome);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? networkJson(found) : AnswerText(outcomeTable(outcome));
    if (!options.svg.empty()) {
        drawOutcome(drawing, outcome, options.svg);
    }
    return answer;
}

} // namespace pipenet
