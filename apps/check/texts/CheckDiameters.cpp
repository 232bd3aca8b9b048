#include "Systems.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// A run at a node: its size, and which of its pipes is the one there.
struct Outlet {
    int diameter = 0; ///< millimetres
    AcDbObjectId pipe;
};

/// The widest runs by which the water comes to a node and by which it leaves.
struct NodeFlow {
    Outlet in;
    Outlet out;
    bool isKnown = true;

    bool shrinks() const {
        return isKnown && !in.pipe.isNull() && !out.pipe.isNull() && out.diameter < in.diameter;
    }
};

/// Of how the water runs, or of the size, nothing is known where the texts cannot be read.
bool isReadable(const RunReading& reading, const UnreadablePipes& unreadable) {
    const AcDbObjectId& pipe = reading.speakingPipe().pipe;
    return unreadable.diameters.count(pipe) == 0 && unreadable.flows.count(pipe) == 0;
}

/// The flows at the nodes of all networks. A node at which something cannot be read has none, for
/// its widest outlet may be just that.
class NodeFlows {
public:
    explicit NodeFlows(const TextCheck& check) : flows_(check.report.networks.size()) {
        for (std::size_t i = 0; i < flows_.size(); ++i) {
            flows_[i].resize(check.report.networks[i].nodes.size());
        }
        for (const RunReading& reading : check.runs) {
            const CheckedRun& run = *reading.run;
            const bool readable = isReadable(reading, check.unreadable);
            add(reading, run.from, run.pipes.front(),
                run.flowReversed ? &NodeFlow::in : &NodeFlow::out, readable);
            add(reading, run.to, run.pipes.back(),
                run.flowReversed ? &NodeFlow::out : &NodeFlow::in, readable);
        }
    }

    const std::vector<NodeFlow>& ofNetwork(std::size_t network) const { return flows_[network]; }

private:
    void add(const RunReading& reading, int node, const AcDbObjectId& pipe, Outlet NodeFlow::*side,
             bool isReadable) {
        if (node < 0) {
            return;
        }
        NodeFlow& flow =
            flows_[static_cast<std::size_t>(reading.network)][static_cast<std::size_t>(node)];
        flow.isKnown = flow.isKnown && isReadable;
        Outlet& widest = flow.*side;
        if (widest.pipe.isNull() || reading.run->diameter > widest.diameter) {
            widest = {reading.run->diameter, pipe};
        }
    }

    std::vector<std::vector<NodeFlow>> flows_;
};

Finding findingOf(const CheckedNode& node, const NodeFlow& flow) {
    Finding finding;
    finding.code = "diameter-shrinks";
    finding.severity = Severity::warning;
    finding.entities = {flow.out.pipe, flow.in.pipe};
    if (!node.entity.isNull()) {
        finding.entities.push_back(node.entity);
    }
    finding.place = node.place;
    finding.measured = flow.out.diameter;
    finding.limit = flow.in.diameter;
    finding.unit = "mm";
    finding.sentence = fmt::format(
        "the water comes to {} by {} of DN{} and leaves by {} of DN{}, the widest there; widen it, "
        "or "
        "correct 管径 or 水流方向",
        node.entity.isNull() ? std::string("the joint") : nameOf(node.entity), nameOf(flow.in.pipe),
        flow.in.diameter, nameOf(flow.out.pipe), flow.out.diameter);
    return finding;
}

} // namespace

void checkDiameters(TextCheck& check) {
    const NodeFlows flows(check);
    for (std::size_t i = 0; i < check.report.networks.size(); ++i) {
        const CheckedNetwork& network = check.report.networks[i];
        const std::vector<NodeFlow>& nodes = flows.ofNetwork(i);
        for (std::size_t node = 0; node < nodes.size() && !network.isPressure; ++node) {
            if (nodes[node].shrinks()) {
                Finding finding = findingOf(network.nodes[node], nodes[node]);
                finding.system = network.system;
                finding.network = static_cast<int>(i);
                check.report.findings.push_back(std::move(finding));
            }
        }
    }
}

} // namespace pipenet
