// A gravity network as a SWMM model: the root is the outfall, or leads to one.
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

class SwmmWriter {
public:
    SwmmWriter(ExchangeNetwork& network, const ExchangeSource& source)
        : network_(network), source_(source) {}

    std::string run() {
        findBottoms();
        chooseOutfall();
        std::string text = opening();
        text += junctions() + outfalls() + storages() + conduits() + sections();
        text += mapSections(network_) + outletPlace();
        defaults_.note(network_);
        return text;
    }

private:
    void findBottoms();
    void chooseOutfall();
    void nameOutlet();
    std::string opening() const;
    std::string junctions() const;
    std::string outfalls() const;
    std::string storages();
    std::string conduits();
    std::string sections();
    std::string outletPlace() const;
    double depthOf(std::size_t node) const;
    bool isOutfall(std::size_t node) const { return node == network_.root && !addsOutlet_; }
    int widest() const;

    ExchangeNetwork& network_;
    ExchangeSource source_;
    Defaults defaults_;
    std::vector<double> bottoms_; ///< of the nodes, metres
    bool addsOutlet_ = false;
    std::string outlet_; ///< name of the outfall behind the root
};

/// A node's bottom is what its text says, but never above a pipe that ends there.
void SwmmWriter::findBottoms() {
    for (const ExchangeNode& node : network_.nodes) {
        if (node.bottom && node.lowestPipe) {
            bottoms_.push_back(std::min(*node.bottom, *node.lowestPipe));
        } else {
            bottoms_.push_back(defaults_.elevation(node.bottom ? node.bottom : node.lowestPipe));
        }
    }
}

/// The engine takes an outfall with one pipe that flows into it, and none else; a tank stays one.
void SwmmWriter::chooseOutfall() {
    int in = 0;
    int out = 0;
    for (const ExchangeLink& link : network_.links) {
        in += link.to == network_.root ? 1 : 0;
        out += link.from == network_.root ? 1 : 0;
    }
    const bool isTank = network_.nodes[network_.root].kind == ExchangeNodeKind::tank;
    addsOutlet_ = in != 1 || out != 0 || isTank;
    if (addsOutlet_) {
        nameOutlet();
    }
}

void SwmmWriter::nameOutlet() {
    const auto isTaken = [this](const std::string& name) {
        return std::any_of(network_.nodes.begin(), network_.nodes.end(),
                           [&name](const ExchangeNode& node) { return node.name == name; }) ||
               std::any_of(network_.links.begin(), network_.links.end(),
                           [&name](const ExchangeLink& link) { return link.name == name; });
    };
    outlet_ = "OUT";
    for (int i = 2; isTaken(outlet_); ++i) {
        outlet_ = "OUT_" + std::to_string(i);
    }
    network_.notes.push_back(
        textOf({0, "an outfall is no tank and takes a single pipe that flows into it; {} is none: "
                   "the outfall {} and a conduit of {} m to it are added"},
               network_.nodes[network_.root].name, outlet_, Defaults::kOutletLength));
}

std::string SwmmWriter::opening() const {
    return fmt::format("[TITLE]\n;;{} of {}, system {}\n{}\n"
                       "[OPTIONS]\nFLOW_UNITS CMS\nINFILTRATION HORTON\nFLOW_ROUTING DYNWAVE\n"
                       "LINK_OFFSETS DEPTH\nALLOW_PONDING NO\n"
                       "START_DATE 01/01/2000\nSTART_TIME 00:00:00\n"
                       "REPORT_START_DATE 01/01/2000\nREPORT_START_TIME 00:00:00\n"
                       "END_DATE 01/01/2000\nEND_TIME 01:00:00\n"
                       "REPORT_STEP 00:05:00\nWET_STEP 00:05:00\nDRY_STEP 01:00:00\n"
                       "ROUTING_STEP 5\n",
                       source_.program, oneLine(source_.drawing), oneLine(network_.system),
                       nameComments(network_));
}

/// From the bottom to the ground; 0 lets the engine take the crown of the highest pipe.
double SwmmWriter::depthOf(std::size_t node) const {
    const std::optional<double>& ground = network_.nodes[node].ground;
    return ground ? std::max(0.0, *ground - bottoms_[node]) : 0.0;
}

std::string SwmmWriter::junctions() const {
    std::string text = "\n[JUNCTIONS]\n;;name bottom depth initial surcharge ponded\n";
    for (std::size_t i = 0; i < network_.nodes.size(); ++i) {
        if (network_.nodes[i].kind != ExchangeNodeKind::tank && !isOutfall(i)) {
            text += fmt::format("{} {} {} 0 0 0\n", network_.nodes[i].name,
                                decimal(bottoms_[i], kPlaces), decimal(depthOf(i), kPlaces));
        }
    }
    return text;
}

std::string SwmmWriter::outfalls() const {
    const std::string& name = addsOutlet_ ? outlet_ : network_.nodes[network_.root].name;
    return fmt::format("\n[OUTFALLS]\n;;name bottom type gated\n{} {} FREE NO\n", name,
                       decimal(bottoms_[network_.root], kPlaces));
}

/// A tank's walls stand upright around the box that it fills in plan.
std::string SwmmWriter::storages() {
    std::string rows;
    for (std::size_t i = 0; i < network_.nodes.size(); ++i) {
        const ExchangeNode& node = network_.nodes[i];
        if (node.kind != ExchangeNodeKind::tank || isOutfall(i)) {
            continue;
        }
        const double depth = depthOf(i);
        if (depth == 0.0) {
            network_.notes.push_back(
                textOf({0, "the depth of the tank {} is not in the drawing and stands as {} m"},
                       node.name, Defaults::kStorageDepth));
        }
        rows += fmt::format("{} {} {} 0 FUNCTIONAL 0 0 {} 0 0\n", node.name,
                            decimal(bottoms_[i], kPlaces),
                            decimal(depth > 0.0 ? depth : Defaults::kStorageDepth, kPlaces),
                            decimal(std::max(1.0, node.length * node.width), 3));
    }
    const char* head = "\n[STORAGE]\n;;name bottom depth initial shape coefficient exponent area\n";
    return rows.empty() ? rows : head + rows;
}

std::string SwmmWriter::conduits() {
    std::string text = "\n[CONDUITS]\n;;name from to length roughness in-offset out-offset\n";
    for (const ExchangeLink& link : network_.links) {
        const double start = link.startElevation.value_or(bottoms_[link.from]);
        const double end = link.endElevation.value_or(bottoms_[link.to]);
        text += fmt::format("{} {} {} {} {} {} {} 0 0\n", link.name, network_.nodes[link.from].name,
                            network_.nodes[link.to].name, lengthText(link, defaults_),
                            shortest(manningOf(link.material)),
                            decimal(start - bottoms_[link.from], kPlaces),
                            decimal(end - bottoms_[link.to], kPlaces));
    }
    if (addsOutlet_) {
        text += fmt::format("{} {} {} {} {} 0 0 0 0\n", outlet_, network_.nodes[network_.root].name,
                            outlet_, Defaults::kOutletLength, shortest(manningOf("")));
    }
    return text;
}

int SwmmWriter::widest() const {
    int widest = 0;
    for (const ExchangeLink& link : network_.links) {
        widest = std::max(widest, link.diameter);
    }
    return widest > 0 ? widest : Defaults::kSewerDiameter;
}

std::string SwmmWriter::sections() {
    std::string text = "\n[XSECTIONS]\n;;link shape height, metres\n";
    for (const ExchangeLink& link : network_.links) {
        const int diameter = defaults_.diameter(link.diameter, Defaults::kSewerDiameter);
        text += fmt::format("{} CIRCULAR {} 0 0 0 1\n", link.name, decimal(diameter / 1000.0, 3));
    }
    if (addsOutlet_) {
        text += fmt::format("{} CIRCULAR {} 0 0 0 1\n", outlet_, decimal(widest() / 1000.0, 3));
    }
    return text;
}

std::string SwmmWriter::outletPlace() const {
    if (!addsOutlet_) {
        return {};
    }
    const PlanPoint& root = network_.nodes[network_.root].at;
    const double unit = network_.metresOfUnit;
    return fmt::format("\n[COORDINATES]\n{} {} {}\n", outlet_,
                       decimal(root.x * unit + Defaults::kOutletLength, kPlaces),
                       decimal(root.y * unit, kPlaces));
}

} // namespace

std::string swmmText(ExchangeNetwork& network, const ExchangeSource& source) {
    return SwmmWriter(network, source).run();
}

} // namespace pipenet
