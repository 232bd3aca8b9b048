#include "findings/CheckGeoJson.h"

#include "findings/CheckJson.h"
#include "findings/RunPath.h"

#include <cmath>

namespace pipenet {

namespace {

constexpr auto kCoordinates =
    "Coordinates are those of the drawing, in drawing units. They are not "
    "longitude and latitude.";

bool isFinite(const AcGePoint3d& place) {
    return std::isfinite(place.x) && std::isfinite(place.y) && std::isfinite(place.z);
}

Json pointGeometry(const AcGePoint3d& place) {
    if (!isFinite(place)) {
        return nullptr;
    }
    return {{"type", "Point"}, {"coordinates", pointJson(place)}};
}

Json lineGeometry(std::vector<PlanPoint> path) {
    if (path.size() == 1) {
        path.push_back(path.front()); // a line has two positions at least
    }
    Json coordinates = Json::array();
    for (const PlanPoint& point : path) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
            return nullptr;
        }
        coordinates.push_back(Json::array({point.x, point.y}));
    }
    return {{"type", "LineString"}, {"coordinates", coordinates}};
}

Json feature(Json geometry, Json properties) {
    return {{"type", "Feature"},
            {"geometry", std::move(geometry)},
            {"properties", std::move(properties)}};
}

Json findingFeature(const Finding& finding) {
    Json properties = {{"feature", "finding"}};
    Json fields = findingJson(finding);
    fields.erase("point"); // it is the geometry
    properties.update(fields);
    return feature(pointGeometry(finding.place), std::move(properties));
}

Json nodeName(const CheckedNetwork& network, int node) {
    if (node < 0) {
        return nullptr;
    }
    return idJson(network.nodes[static_cast<std::size_t>(node)].entity);
}

Json runFeature(const CheckedNetwork& network, std::size_t index, const CheckedRun& run) {
    return feature(lineGeometry(runPath(run)),
                   {{"feature", "run"},
                    {"system", network.system},
                    {"network", index},
                    {"kind", network.isPressure ? "pressure" : "gravity"},
                    {"pipes", handlesJson(run.pipes)},
                    {"from", nodeName(network, run.from)},
                    {"to", nodeName(network, run.to)},
                    {"flowReversed", run.flowReversed},
                    {"diameter", run.diameter},
                    {"material", run.material},
                    {"length", run.length},
                    {"startElevation", run.startElevation},
                    {"endElevation", run.endElevation}});
}

Json nodeFeature(const CheckedNetwork& network, std::size_t index, const CheckedNode& node) {
    return feature(pointGeometry(node.place), {{"feature", nodeKindName(node.kind)},
                                               {"system", network.system},
                                               {"network", index},
                                               {"handle", idJson(node.entity)},
                                               {"merged", handlesJson(node.merged)},
                                               {"number", node.number},
                                               {"radius", node.radius}});
}

/// Features one by one, so that a large drawing never stands in memory as one JSON value.
class Features {
public:
    explicit Features(const std::string& drawing) {
        out_ = "{\"type\":\"FeatureCollection\",\"drawing\":";
        appendJson(out_, drawing);
        out_ += ",\"note\":";
        appendJson(out_, kCoordinates);
        out_ += ",\"features\":[";
    }

    void add(const Json& feature) {
        out_ += isFirst_ ? "\n" : ",\n";
        isFirst_ = false;
        appendJson(out_, feature);
    }

    std::string text() && { return std::move(out_) + "]}\n"; }

private:
    std::string out_;
    bool isFirst_ = true;
};

} // namespace

std::string checkGeoJson(const std::string& drawing, const CheckReport& report) {
    Features features(drawing);
    for (const Finding& finding : report.findings) {
        features.add(findingFeature(finding));
    }
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        const CheckedNetwork& network = report.networks[i];
        for (const CheckedRun& run : network.runs) {
            features.add(runFeature(network, i, run));
        }
        for (const CheckedNode& node : network.nodes) {
            if (!node.entity.isNull()) {
                features.add(nodeFeature(network, i, node));
            }
        }
    }
    return std::move(features).text();
}

} // namespace pipenet
