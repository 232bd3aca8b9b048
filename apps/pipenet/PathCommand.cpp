#include "PathCommand.h"

#include "NetworkJson.h"
#include "NetworkSearch.h"
#include "NetworkTable.h"
#include "Progress.h"
#include "Refusal.h"
#include "svg/NetworkPicture.h"

namespace pipenet {

namespace {

/// Puts the way to the target into the network; an outcome without a path holds none.
void findPath(SearchOutcome& outcome, AcDbObjectId target) {
    GravitySearchObject* network = gravityNetwork(outcome);
    if (network == nullptr || FindGravityPath(network, target) == 0) {
        outcome = SearchOutcome();
    }
}

} // namespace

Answer runPath(const Drawing& drawing, const Options& options) {
    Answer answer;
    const SearchRequest request = searchRequest(drawing, options);
    const AcDbObjectId target = drawing.entity(options.target);
    const Stopwatch watch;
    const auto found = std::make_shared<SearchOutcome>();
    SearchOutcome& outcome = *found;
    {
        const Progress progress("searching " + drawing.name());
        outcome = searchNetwork(request);
        answer.timing.searchMs = watch.milliseconds();
        std::string cause = pathRefusal(drawing, request, outcome, target);
        const Stopwatch pathWatch;
        findPath(outcome, target);
        answer.timing.searchMs += pathWatch.milliseconds();
        if (outcome.object == nullptr) {
            answer.refusal = std::move(cause);
        }
    }
    const GravitySearchObject* network = gravityNetwork(outcome);
    answer.isJson = options.format == Format::json;
    if (answer.isJson) {
        answer.text = networkJson(found);
    } else {
        answer.text = network != nullptr ? networkTable(*network) : "No path (result 0)\n";
    }
    if (network != nullptr && !options.svg.empty()) {
        const Progress progress("drawing " + options.svg);
        drawScene(makeScene(drawing, *network), drawing.name(), options.svg);
    }
    return answer;
}

} // namespace pipenet
