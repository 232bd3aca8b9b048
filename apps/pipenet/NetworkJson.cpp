#include "NetworkJson.h"

#include "JsonRecords.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// Record by record, so that a large network never stands in memory as one JSON value.
template<class Records, class Write>
void appendRecords(std::string& out, Records& records, const Write& write) {
    out += '[';
    for (INT_PTR i = 0; i < records.GetSize(); ++i) {
        if (i > 0) {
            out += ',';
        }
        appendJson(out, write(records[i]));
    }
    out += ']';
}

std::string gravityJson(int result, const GravitySearchObject& network) {
    std::string out = fmt::format(R"({{"result":{},"kind":"gravity","rootWell":{},"pathSegs":)",
                                  result, network.rootWell);
    appendJson(out, indicesJson(network.pathSegs));
    out += ",\"pathWells\":";
    appendJson(out, indicesJson(network.pathWells));
    out += ",\"wells\":";
    appendRecords(out, network.wells, wellJson);
    out += ",\"segs\":";
    appendRecords(out, network.segs, gravitySegJson);
    return out + "}\n";
}

std::string pressureJson(int result, PressureSearchObject& network) {
    std::string out = fmt::format(R"({{"result":{},"kind":"pressure","rootSeg":{},"segs":)", result,
                                  network.rootSeg);
    appendRecords(out, network.segs, pressureSegJson);
    return out + "}\n";
}

} // namespace

std::string networkJson(const SearchOutcome& outcome) {
    if (const GravitySearchObject* network = gravityNetwork(outcome)) {
        return gravityJson(outcome.result, *network);
    }
    if (PressureSearchObject* network = pressureNetwork(outcome)) {
        return pressureJson(outcome.result, *network);
    }
    std::string out;
    appendJson(out, {{"result", outcome.result}, {"kind", nullptr}});
    return out + '\n';
}

} // namespace pipenet
