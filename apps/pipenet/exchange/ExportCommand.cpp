#include "exchange/ExportCommand.h"

#include "exchange/ExchangeMessages.h"
#include "exchange/ExchangeNames.h"
#include "exchange/ExchangeText.h"
#include "exchange/Notes.h"
#include "exchange/ReadNetwork.h"
#include "exchange/ValveSplit.h"
#include "Failure.h"
#include "HandleText.h"
#include "JsonText.h"
#include "NetworkSearch.h"
#include "OutputFile.h"
#include "Progress.h"
#include "Refusal.h"
#include "Systems.h"
#include "TextTable.h"
#include "WholeFile.h"

#include <cerrno>
#include <cstring>

namespace pipenet {

namespace {

/// Why the form cannot take the network; empty when it can.
std::string formRefusal(const std::string& form, const SearchRequest& request, bool isGravity) {
    const bool fits = isGravity ? form != "epanet" : form != "swmm";
    if (fits) {
        return {};
    }
    return textOf(isGravity ? messages::kFormatIsPressure : messages::kFormatIsGravity,
                  nameOf(request.start), utf8(systemNameOf(request.start)));
}

std::string fileText(ExchangeNetwork& network, const std::string& form,
                     const ExchangeSource& source) {
    if (form == "epanet") {
        splitAtValves(network);
    }
    nameNetwork(network, form == "epanet" ? kLongestEpanetName : kLongestName);
    return form == "swmm"      ? swmmText(network, source)
           : form == "epanet"  ? epanetText(network, source)
           : form == "geojson" ? geoJsonText(network, source)
                               : csvText(network);
}

void writeFile(const std::string& path, const std::string& text) {
    errno = 0;
    if (!siblings::replaceWholeFile(path, text)) {
        const int cause = errno;
        throw Failure(messages::kUnwritable, path,
                      cause == 0 ? "the folder or the file refuses it" : std::strerror(cause));
    }
}

std::string summary(const Options& options, const ExchangeNetwork& network) {
    if (options.format == Format::json) {
        std::string text;
        appendJson(text, {{"result", 1},
                          {"kind", network.isGravity ? "gravity" : "pressure"},
                          {"system", network.system},
                          {"root", network.nodes[network.root].name},
                          {"nodes", network.nodes.size()},
                          {"links", network.links.size()},
                          {"to", options.exchange.format},
                          {"output", options.output}});
        return text + "\n";
    }
    return fmt::format("{} network of {} from {}: {} and {} written to {}\n",
                       network.isGravity ? "Gravity" : "Pressure", network.system,
                       network.nodes[network.root].name,
                       counted(static_cast<std::ptrdiff_t>(network.nodes.size()), "node", "nodes"),
                       counted(static_cast<std::ptrdiff_t>(network.links.size()), "link", "links"),
                       options.output);
}

/// The network that the request finds; without nodes, and with the reason in the answer, when
/// there is none to be written.
ExchangeNetwork findNetwork(const Drawing& drawing, const Options& options, Answer& answer) {
    const Stopwatch watch;
    const Progress progress("searching " + drawing.name());
    const SearchRequest request = searchRequest(drawing, options);
    SearchOutcome outcome;
    if (!request.start.isNull()) {
        outcome = searchNetwork(request);
    }
    answer.timing.searchMs = watch.milliseconds();
    answer.refusal = refusalOf(drawing, request, outcome);
    const GravitySearchObject* gravity = gravityNetwork(outcome);
    PressureSearchObject* pressure = pressureNetwork(outcome);
    if (answer.refusal.empty()) {
        answer.refusal = formRefusal(options.exchange.format, request, gravity != nullptr);
    }
    if (!answer.refusal.empty()) {
        return {};
    }
    return gravity != nullptr ? readNetwork(*gravity) : readNetwork(*pressure, drawing);
}

} // namespace

Answer runExport(const Drawing& drawing, const Options& options) {
    Answer answer;
    answer.isJson = options.format == Format::json;
    const std::string target = separateOutput(options);
    ExchangeNetwork network = findNetwork(drawing, options, answer);
    if (!answer.refusal.empty()) {
        answer.text = answer.isJson ? "{\"result\":0}\n" : "Nothing exported\n";
        return answer;
    }
    const Progress progress("writing " + target);
    writeFile(target, fileText(network, options.exchange.format,
                               {drawing.name(), "pipenet " PIPENET_VERSION}));
    answer.text = summary(options, network);
    printNotes(network.notes);
    return answer;
}

} // namespace pipenet
