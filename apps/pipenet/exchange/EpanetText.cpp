// A pressure network as an EPANET model that runs as it stands: water comes from the picked end.
#include "exchange/Defaults.h"
#include "exchange/ExchangeText.h"
#include "exchange/PipeMaterials.h"
#include "Messages.h"
#include "OneLine.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

namespace {

constexpr int kPlaces = 6;

class EpanetWriter {
public:
    EpanetWriter(ExchangeNetwork& network, const ExchangeSource& source)
        : network_(network), source_(source) {}

    std::string run() {
        for (const ExchangeNode& node : network_.nodes) {
            heights_.push_back(heightOf(node));
        }
        std::string text =
            fmt::format("[TITLE]\n{} of {}, system {}\nDemands are 0: the drawing has none.\n\n{}",
                        source_.program, oneLine(source_.drawing), oneLine(network_.system),
                        nameComments(network_));
        text += junctions() + reservoirs() + tanks() + pipes() + valves();
        text += "\n[OPTIONS]\nUNITS LPS\nHEADLOSS H-W\n\n[TIMES]\nDURATION 0\n";
        text += mapSections(network_) + "\n[END]\n";
        defaults_.note(network_);
        return text;
    }

private:
    double heightOf(const ExchangeNode& node);
    bool isReservoir(std::size_t node) const;
    bool isTank(std::size_t node) const {
        return network_.nodes[node].kind == ExchangeNodeKind::tank && !isReservoir(node);
    }
    std::string junctions() const;
    std::string reservoirs();
    std::string tanks();
    std::string pipes();
    std::string valves();

    ExchangeNetwork& network_;
    ExchangeSource source_;
    Defaults defaults_;
    std::vector<double> heights_; ///< of the nodes, metres
};

double EpanetWriter::heightOf(const ExchangeNode& node) {
    if (node.waterLevel) {
        return *node.waterLevel;
    }
    return defaults_.elevation(node.bottom ? node.bottom : node.lowestPipe);
}

bool EpanetWriter::isReservoir(std::size_t node) const {
    return node == network_.root || network_.nodes[node].waterLevel.has_value();
}

std::string EpanetWriter::junctions() const {
    std::string text = "\n[JUNCTIONS]\n;;name elevation demand\n";
    for (std::size_t i = 0; i < network_.nodes.size(); ++i) {
        if (!isReservoir(i) && !isTank(i)) {
            text += fmt::format("{} {} 0\n", network_.nodes[i].name, decimal(heights_[i], kPlaces));
        }
    }
    return text;
}

std::string EpanetWriter::reservoirs() {
    std::string text = "\n[RESERVOIRS]\n;;name head\n";
    for (std::size_t i = 0; i < network_.nodes.size(); ++i) {
        const ExchangeNode& node = network_.nodes[i];
        if (!isReservoir(i)) {
            continue;
        }
        const double head = heights_[i] + (node.waterLevel ? 0.0 : Defaults::kPressureHead);
        if (!node.waterLevel) {
            network_.notes.push_back(
                textOf({0, "the picked end {} is a reservoir; its head is not in the drawing and "
                           "stands as {} m, {} m above the pipe"},
                       node.name, decimal(head, 3), Defaults::kPressureHead));
        }
        text += fmt::format("{} {}\n", node.name, decimal(head, kPlaces));
    }
    return text;
}

std::string EpanetWriter::tanks() {
    std::string rows;
    int count = 0;
    for (std::size_t i = 0; i < network_.nodes.size(); ++i) {
        const ExchangeNode& node = network_.nodes[i];
        if (isTank(i)) {
            const double diameter = node.length > 0.0 ? node.length : Defaults::kTankDiameter;
            rows += fmt::format("{} {} {} 0 {} {} 0\n", node.name, decimal(heights_[i], kPlaces),
                                Defaults::kTankLevel, Defaults::kTankDepth, decimal(diameter, 3));
            ++count;
        }
    }
    if (count > 0) {
        network_.notes.push_back(
            textOf({0, "tanks whose levels the drawing does not know stand {} m full and {} m deep "
                       "({} of them)"},
                   Defaults::kTankLevel, Defaults::kTankDepth, count));
    }
    return rows.empty() ? rows
                        : "\n[TANKS]\n;;name bottom level least most diameter volume\n" + rows;
}

std::string EpanetWriter::pipes() {
    std::string text = "\n[PIPES]\n;;name from to length diameter roughness minor-loss status\n";
    int pumps = 0;
    for (const ExchangeLink& link : network_.links) {
        if (link.device == ExchangeDevice::valve) {
            continue;
        }
        pumps += link.device == ExchangeDevice::pump ? 1 : 0;
        text += fmt::format("{} {} {} {} {} {} 0 Open\n", link.name, network_.nodes[link.from].name,
                            network_.nodes[link.to].name, lengthText(link, defaults_),
                            defaults_.diameter(link.diameter, Defaults::kMainDiameter),
                            shortest(hazenWilliamsOf(link.material)));
    }
    if (pumps > 0) {
        network_.notes.push_back(textOf(
            {0, "the drawing knows no curves of {} pumps; they stand as open pipes"}, pumps));
    }
    return text;
}

/// A throttle that is open lets the water through whichever way it flows.
std::string EpanetWriter::valves() {
    std::string rows;
    for (const ExchangeLink& link : network_.links) {
        if (link.device == ExchangeDevice::valve) {
            rows += fmt::format("{} {} {} {} TCV 0 0\n", link.name, network_.nodes[link.from].name,
                                network_.nodes[link.to].name,
                                defaults_.diameter(link.diameter, Defaults::kMainDiameter));
        }
    }
    return rows.empty() ? rows
                        : "\n[VALVES]\n;;name from to diameter type setting minor-loss\n" + rows;
}

} // namespace

std::string epanetText(ExchangeNetwork& network, const ExchangeSource& source) {
    return EpanetWriter(network, source).run();
}

} // namespace pipenet
