#include "findings/CheckJson.h"

#include "Systems.h"

#include <algorithm>

namespace pipenet {

namespace {

/// Record by record, so that a large report never stands in memory as one JSON value.
template<class Records, class Write>
void appendRecords(std::string& out, const char* name, const Records& records, const Write& write) {
    out += name;
    out += '[';
    bool first = true;
    for (const auto& record : records) {
        out += first ? "" : ",";
        first = false;
        appendJson(out, write(record));
    }
    out += ']';
}

Json placedFindingJson(const Finding& finding) {
    Json json = findingJson(finding);
    json["point"] = pointJson(finding.place);
    return json;
}

Json networkJson(const CheckedNetwork& network) {
    return {{"system", network.system},     {"kind", network.isPressure ? "pressure" : "gravity"},
            {"root", idJson(network.root)}, {"wells", blocksOf(network)},
            {"segs", network.runs.size()},  {"length", lengthOf(network)}};
}

Json extremeJson(const std::optional<ExtremePoint>& extreme) {
    if (!extreme) {
        return nullptr;
    }
    return {{"elevation", extreme->elevation},
            {"entity", idJson(extreme->entity)},
            {"point", pointJson(extreme->place)}};
}

Json systemJson(const SystemFigures& figures) {
    Json lengths = Json::array();
    for (const LaidLength& laid : figures.lengths) {
        lengths.push_back({{"diameter", laid.diameter},
                           {"material", laid.material},
                           {"segs", laid.runs},
                           {"length", laid.length}});
    }
    return {{"name", figures.name},
            {"flow", flowName(figures.flow)},
            {"flag", figures.flag},
            {"pipes", figures.pipes},
            {"wells", figures.wells},
            {"tanks", figures.tanks},
            {"networks", figures.networks},
            {"length", figures.length},
            {"lengths", lengths},
            {"lowest", extremeJson(figures.lowest)},
            {"highest", extremeJson(figures.highest)}};
}

Json numberOrNull(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

} // namespace

const char* flowName(int flow) {
    return flow == kGravityFlow ? "gravity" : flow == kPressureFlow ? "pressure" : "unknown";
}

const char* nodeKindName(CheckedNodeKind kind) {
    switch (kind) {
    case CheckedNodeKind::well:
        return "well";
    case CheckedNodeKind::tank:
        return "tank";
    case CheckedNodeKind::valve:
        return "valve";
    case CheckedNodeKind::meter:
        return "meter";
    case CheckedNodeKind::junction:
        break;
    }
    return "junction";
}

double lengthOf(const CheckedNetwork& network) {
    double length = 0.0;
    for (const CheckedRun& run : network.runs) {
        length += run.length;
    }
    return length;
}

std::ptrdiff_t blocksOf(const CheckedNetwork& network) {
    return std::count_if(network.nodes.begin(), network.nodes.end(),
                         [](const CheckedNode& node) { return !node.entity.isNull(); });
}

Json handlesJson(const std::vector<AcDbObjectId>& ids) {
    Json list = Json::array();
    for (const AcDbObjectId& id : ids) {
        list.push_back(idJson(id));
    }
    return list;
}

Json findingJson(const Finding& finding) {
    return {{"code", finding.code},
            {"severity", severityName(finding.severity)},
            {"system", finding.system},
            {"handles", handlesJson(finding.entities)},
            {"point", nullptr},
            {"measured", numberOrNull(finding.measured)},
            {"limit", numberOrNull(finding.limit)},
            {"unit", finding.unit},
            {"sentence", finding.sentence},
            {"network", finding.network < 0 ? Json(nullptr) : Json(finding.network)}};
}

std::string checkJson(const CheckReport& report) {
    std::string out;
    appendRecords(out, "{\"findings\":", report.findings, placedFindingJson);
    appendRecords(out, ",\"networks\":", report.networks, networkJson);
    appendRecords(out, ",\"systems\":", report.systems, systemJson);
    appendRecords(out, ",\"loose\":", report.loose, idJson);
    return out + "}\n";
}

} // namespace pipenet
