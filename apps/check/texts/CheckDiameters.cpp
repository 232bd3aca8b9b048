#include "Systems.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// The widest runs by which the water comes to a node and by which it leaves.
struct NodeFlow {
    const RunReading* in = nullptr;
    const RunReading* out = nullptr;
    bool isKnown = true;

    bool shrinks() const {
        return isKnown && in != nullptr && out != nullptr &&
               out->run->diameter < in->run->diameter;
    }
};

/// Of how the water runs, or of the size, nothing is known where the texts cannot be read.
bool isReadable(const RunReading& reading, const UnreadablePipes& unreadable) {
    return !reading.pipes.empty() &&
           unreadable.diameters.count(reading.pipes.front().pipe) == 0 &&
           unreadable.flows.count(reading.pipes.front().pipe) == 0;
}

/// The flows at the nodes of all networks. A node at which something cannot be read has none, for its
/// widest outlet may be just that.
class NodeFlows {
public:
    explicit NodeFlows(const TextCheck& check) : flows_(check.report.networks.size()) {
        for (std::size_t i = 0; i < flows_.size(); ++i) {
            flows_[i].resize(check.report.networks[i].nodes.size());
        }
        for (const RunReading& reading : check.runs) {
            const CheckedRun& run = *reading.run;
            const bool readable = isReadable(reading, check.unreadable);
            add(reading, run.flowReversed ? run.to : run.from, &NodeFlow::out, readable);
            add(reading, run.flowReversed ? run.from : run.to, &NodeFlow::in, readable);
        }
    }

    const std::vector<NodeFlow>& ofNetwork(std::size_t network) const { return flows_[network]; }

private:
    void add(const RunReading& reading, int node, const RunReading* NodeFlow::*side,
             bool isReadable) {
        if (node < 0) {
            return;
        }
        NodeFlow& flow =
            flows_[static_cast<std::size_t>(reading.network)][static_cast<std::size_t>(node)];
        flow.isKnown = flow.isKnown && isReadable;
        const RunReading*& widest = flow.*side;
        if (widest == nullptr || reading.run->diameter > widest->run->diameter) {
            widest = &reading;
        }
    }

    std::vector<std::vector<NodeFlow>> flows_;
};

Finding findingOf(const CheckedNode& node, const NodeFlow& flow) {
    const AcDbObjectId out = flow.out->pipes.front().pipe;
    const AcDbObjectId in = flow.in->pipes.front().pipe;
    Finding finding;
    finding.code = "diameter-shrinks";
    finding.severity = Severity::warning;
    finding.entities = {out, in};
    if (!node.entity.isNull()) {
        finding.entities.push_back(node.entity);
    }
    finding.place = node.place;
    finding.measured = flow.out->run->diameter;
    finding.limit = flow.in->run->diameter;
    finding.unit = "mm";
    finding.sentence = fmt::format(
        "the water comes to {} by {} of DN{} and leaves by {} of DN{}, the widest there; widen it, or "
        "correct 管径 or 水流方向",
        node.entity.isNull() ? std::string("the joint") : nameOf(node.entity), nameOf(in),
        flow.in->run->diameter, nameOf(out), flow.out->run->diameter);
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
