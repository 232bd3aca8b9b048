// One table for nodes, links and fittings, told apart by its first column, so that a file is whole
// or not there.
#include "exchange/ExchangeText.h"
#include "HandleText.h"

#include <initializer_list>

namespace pipenet {

namespace {

constexpr const char* kTitle =
    "record,name,kind,handles,number,system,from,to,x,y,bottom_m,ground_m,water_level_m,"
    "diameter_mm,length_m,slope,material,start_elevation_m,end_elevation_m,path\r\n";

std::string cell(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char letter : text) {
        quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    }
    return quoted + "\"";
}

std::string row(std::initializer_list<std::string> cells) {
    std::string text;
    for (const std::string& one : cells) {
        text += (&one == cells.begin() ? "" : ",") + cell(one);
    }
    return text + "\r\n";
}

std::string orEmpty(const std::optional<double>& value) {
    return value ? shortest(*value) : std::string();
}

std::string lengthCell(const ExchangeLink& link) {
    return link.lengthIsGiven ? shortest(link.length) : decimal(link.length, 6);
}

std::string nodeRow(const ExchangeNetwork& network, const ExchangeNode& node) {
    const char* kind = node.kind == ExchangeNodeKind::well   ? "well"
                       : node.kind == ExchangeNodeKind::tank ? "tank"
                                                             : "joint";
    return row({"node",
                node.name,
                kind,
                handleText(node.entity),
                node.number,
                network.system,
                "",
                "",
                shortest(node.at.x),
                shortest(node.at.y),
                orEmpty(node.bottom),
                orEmpty(node.ground),
                orEmpty(node.waterLevel),
                "",
                "",
                "",
                "",
                "",
                "",
                ""});
}

std::string handles(const ExchangeLink& link) {
    std::string text;
    for (const AcDbObjectId& id : link.pipes) {
        text += (text.empty() ? "" : " ") + handleText(id);
    }
    return text;
}

std::string pathText(const ExchangeLink& link) {
    std::string text = "LINESTRING (";
    for (std::size_t i = 0; i < link.path.size(); ++i) {
        text += (i == 0 ? "" : ", ") + shortest(link.path[i].x) + " " + shortest(link.path[i].y);
    }
    return text + ")";
}

std::string linkRow(const ExchangeNetwork& network, const ExchangeLink& link) {
    const char* kind = link.device == ExchangeDevice::valve  ? "valve"
                       : link.device == ExchangeDevice::pump ? "pump"
                                                             : "pipe";
    return row({"link",
                link.name,
                kind,
                handles(link),
                link.number,
                network.system,
                network.nodes[link.from].name,
                network.nodes[link.to].name,
                "",
                "",
                "",
                "",
                "",
                std::to_string(link.diameter),
                lengthCell(link),
                shortest(link.slope),
                link.material,
                orEmpty(link.startElevation),
                orEmpty(link.endElevation),
                pathText(link)});
}

std::string fittingRow(const ExchangeNetwork& network, const ExchangeFitting& fitting) {
    return row({"fitting",
                "",
                fitting.isValve ? "valve" : "meter",
                handleText(fitting.entity),
                fitting.number,
                network.system,
                network.links[fitting.link].name,
                "",
                shortest(fitting.at.x),
                shortest(fitting.at.y),
                "",
                "",
                "",
                "",
                "",
                "",
                "",
                "",
                "",
                ""});
}

} // namespace

std::string csvText(const ExchangeNetwork& network) {
    std::string text = kTitle;
    for (const ExchangeNode& node : network.nodes) {
        text += nodeRow(network, node);
    }
    for (const ExchangeLink& link : network.links) {
        text += linkRow(network, link);
    }
    for (const ExchangeFitting& fitting : network.fittings) {
        text += fittingRow(network, fitting);
    }
    return text;
}

} // namespace pipenet
