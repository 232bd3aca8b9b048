#include "report/ReportData.h"

#include "findings/CheckJson.h"
#include "report/PictureData.h"
#include "report/ReportIndex.h"
#include "Systems.h"

#include <cmath>

namespace pipenet {

namespace {

Json inPlanJson(const AcGePoint3d& place) {
    return placeJson({place.x, place.y});
}

Json optionalJson(const std::optional<double>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json extremeJson(const std::optional<ExtremePoint>& extreme) {
    if (!extreme) {
        return nullptr;
    }
    return {{"elevation", extreme->elevation},
            {"handle", idJson(extreme->entity)},
            {"at", inPlanJson(extreme->place)}};
}

Json lengthsJson(const std::vector<LaidLength>& lengths) {
    Json list = Json::array();
    for (const LaidLength& laid : lengths) {
        list.push_back({{"diameter", laid.diameter},
                        {"material", laid.material},
                        {"runs", laid.runs},
                        {"length", laid.length}});
    }
    return list;
}

Json systemJson(const SystemFigures& system) {
    return {{"name", system.name},
            {"flow", flowName(system.flow)},
            {"flag", system.flag},
            {"pipes", system.pipes},
            {"wells", system.wells},
            {"tanks", system.tanks},
            {"networks", system.networks},
            {"length", system.length},
            {"lengths", lengthsJson(system.lengths)},
            {"lowest", extremeJson(system.lowest)},
            {"highest", extremeJson(system.highest)}};
}

Json networksJson(const CheckReport& report, const ReportIndex& index) {
    Json list = Json::array();
    for (const CheckedNetwork& network : report.networks) {
        list.push_back({{"index", list.size()},
                        {"system", index.system(network.system)},
                        {"root", idJson(network.root)},
                        {"nodes", network.nodes.size()},
                        {"runs", network.runs.size()},
                        {"length", lengthOf(network)}});
    }
    return list;
}

Json listedFinding(const Finding& finding, const ReportIndex& index) {
    return {{"code", finding.code},
            {"severity", severityName(finding.severity)},
            {"system", index.system(finding.system)},
            {"systemName", finding.system},
            {"handles", handlesJson(finding.entities)},
            {"at", inPlanJson(finding.place)},
            {"measured", optionalJson(finding.measured)},
            {"limit", optionalJson(finding.limit)},
            {"unit", finding.unit},
            {"sentence", finding.sentence},
            {"network", finding.network}};
}

double metresPerUnit() {
    const double length = metres(1.0);
    return std::isfinite(length) && length > 0.0 ? length : 1.0;
}

} // namespace

Json reportData(const Drawing& drawing, const CheckReport& report) {
    const ReportIndex index(report);
    Json systems = Json::array();
    for (const SystemFigures& system : report.systems) {
        systems.push_back(systemJson(system));
    }
    Json findings = Json::array();
    for (const Finding& finding : report.findings) {
        findings.push_back(listedFinding(finding, index));
    }
    PictureData picture = pictureData(drawing, report, index);
    return {{"drawing", drawing.name()},         {"metresPerUnit", metresPerUnit()},
            {"systems", std::move(systems)},     {"networks", networksJson(report, index)},
            {"pipes", std::move(picture.pipes)}, {"nodes", std::move(picture.nodes)},
            {"runs", std::move(picture.runs)},   {"findings", std::move(findings)}};
}

} // namespace pipenet
