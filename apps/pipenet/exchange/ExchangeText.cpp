#include "exchange/ExchangeText.h"

#include "HandleText.h"
#include "OneLine.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

constexpr int kPlaces = 6; ///< of coordinates: a thousandth of a millimetre

std::string handles(const std::vector<AcDbObjectId>& ids) {
    std::string text;
    for (const AcDbObjectId& id : ids) {
        text += (text.empty() ? "" : " ") + handleText(id);
    }
    return text;
}

std::string place(const PlanPoint& point, double scale) {
    return decimal(point.x * scale, kPlaces) + " " + decimal(point.y * scale, kPlaces);
}

} // namespace

std::string shortest(double value) {
    return fmt::format("{}", value);
}

std::string decimal(double value, int places) {
    std::string text = fmt::format("{:.{}f}", value, places);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

std::string nameComments(const ExchangeNetwork& network) {
    std::string text = ";; name = handles of the entities, number in the drawing\n";
    for (const ExchangeNode& node : network.nodes) {
        const std::string handle = node.entity.isNull() ? "no entity" : handleText(node.entity);
        text += fmt::format(";; node {} = {}, {}\n", node.name, handle, oneLine(node.number));
    }
    for (const ExchangeLink& link : network.links) {
        text += fmt::format(";; link {} = {}, {}\n", link.name, handles(link.pipes),
                            oneLine(link.number));
    }
    for (const ExchangeFitting& fitting : network.fittings) {
        text += fmt::format(";; {} on {} = {}, {}\n", fitting.isValve ? "valve" : "meter",
                            network.links[fitting.link].name, handleText(fitting.entity),
                            oneLine(fitting.number));
    }
    return text;
}

std::string mapSections(const ExchangeNetwork& network) {
    std::string text = "\n[COORDINATES]\n;;node x y, metres\n";
    for (const ExchangeNode& node : network.nodes) {
        text += fmt::format("{} {}\n", node.name, place(node.at, network.metresOfUnit));
    }
    text += "\n[VERTICES]\n;;link x y, metres\n";
    for (const ExchangeLink& link : network.links) {
        for (std::size_t i = 1; i + 1 < link.path.size(); ++i) {
            text += fmt::format("{} {}\n", link.name, place(link.path[i], network.metresOfUnit));
        }
    }
    return text;
}

} // namespace pipenet
