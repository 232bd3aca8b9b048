// Points for nodes and fittings, lines for pipes. Positions are drawing coordinates.
#include "exchange/ExchangeText.h"
#include "HandleText.h"
#include "JsonText.h"

namespace pipenet {

namespace {

Json position(const PlanPoint& point) {
    return Json::array({point.x, point.y});
}

Json orNull(const std::optional<double>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json feature(Json geometry, Json properties) {
    return {{"type", "Feature"},
            {"geometry", std::move(geometry)},
            {"properties", std::move(properties)}};
}

Json pointFeature(const PlanPoint& at, Json properties) {
    return feature({{"type", "Point"}, {"coordinates", position(at)}}, std::move(properties));
}

const char* kindText(const ExchangeNetwork& network, std::size_t node) {
    switch (network.nodes[node].kind) {
    case ExchangeNodeKind::well:
        return "well";
    case ExchangeNodeKind::tank:
        return "tank";
    case ExchangeNodeKind::joint:
        break;
    }
    return "joint";
}

Json nodeFeature(const ExchangeNetwork& network, std::size_t index) {
    const ExchangeNode& node = network.nodes[index];
    return pointFeature(node.at, {{"record", "node"},
                                  {"name", node.name},
                                  {"kind", kindText(network, index)},
                                  {"root", index == network.root},
                                  {"handle", idJson(node.entity)},
                                  {"number", node.number},
                                  {"system", network.system},
                                  {"bottom_m", orNull(node.bottom)},
                                  {"ground_m", orNull(node.ground)},
                                  {"water_level_m", orNull(node.waterLevel)},
                                  {"lowest_pipe_m", orNull(node.lowestPipe)}});
}

const char* deviceText(ExchangeDevice device) {
    return device == ExchangeDevice::valve  ? "valve"
           : device == ExchangeDevice::pump ? "pump"
                                            : "pipe";
}

Json handlesJson(const ExchangeLink& link) {
    Json handles = Json::array();
    for (const AcDbObjectId& id : link.pipes) {
        handles.push_back(handleText(id));
    }
    return handles;
}

Json linkFeature(const ExchangeNetwork& network, const ExchangeLink& link) {
    Json line = Json::array();
    for (const PlanPoint& point : link.path) {
        line.push_back(position(point));
    }
    return feature({{"type", "LineString"}, {"coordinates", std::move(line)}},
                   {{"record", "link"},
                    {"name", link.name},
                    {"kind", deviceText(link.device)},
                    {"handles", handlesJson(link)},
                    {"number", link.number},
                    {"system", network.system},
                    {"from", network.nodes[link.from].name},
                    {"to", network.nodes[link.to].name},
                    {"diameter_mm", link.diameter},
                    {"length_m", link.length},
                    {"length_is_given", link.lengthIsGiven},
                    {"slope", link.slope},
                    {"material", link.material},
                    {"start_elevation_m", orNull(link.startElevation)},
                    {"end_elevation_m", orNull(link.endElevation)}});
}

} // namespace

std::string geoJsonText(const ExchangeNetwork& network, const ExchangeSource& source) {
    Json features = Json::array();
    for (std::size_t i = 0; i < network.nodes.size(); ++i) {
        features.push_back(nodeFeature(network, i));
    }
    for (const ExchangeLink& link : network.links) {
        features.push_back(linkFeature(network, link));
    }
    for (const ExchangeFitting& fitting : network.fittings) {
        features.push_back(pointFeature(fitting.at, {{"record", "fitting"},
                                                     {"kind", fitting.isValve ? "valve" : "meter"},
                                                     {"handle", idJson(fitting.entity)},
                                                     {"number", fitting.number},
                                                     {"system", network.system},
                                                     {"link", network.links[fitting.link].name}}));
    }
    std::string text;
    appendJson(text, {{"type", "FeatureCollection"},
                      {"source", source.drawing},
                      {"program", source.program},
                      {"positions", "drawing coordinates, not longitude and latitude"},
                      {"metres_of_drawing_unit", network.metresOfUnit},
                      {"features", std::move(features)}});
    return text + "\n";
}

} // namespace pipenet
