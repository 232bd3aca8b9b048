#include "networks/AssembleNetworks.h"

#include <numeric>

namespace pipenet {

namespace {

/// Sets of nodes that hang together.
class Groups {
public:
    explicit Groups(std::size_t size) : parents_(size) {
        std::iota(parents_.begin(), parents_.end(), std::size_t{0});
    }

    std::size_t of(std::size_t node) {
        while (parents_[node] != node) {
            parents_[node] = parents_[parents_[node]];
            node = parents_[node];
        }
        return node;
    }

    /// The group of the lower node goes on.
    void join(std::size_t a, std::size_t b) {
        a = of(a);
        b = of(b);
        parents_[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<std::size_t> parents_;
};

std::size_t indexOf(int node) {
    return static_cast<std::size_t>(node);
}

Groups groupsOf(const NetworkPieces& pieces) {
    Groups groups(pieces.nodes.size());
    for (const CheckedRun& run : pieces.runs) {
        if (run.to >= 0) {
            groups.join(indexOf(run.from), indexOf(run.to));
        }
    }
    for (const auto& [node, companion] : pieces.companions) {
        groups.join(indexOf(node), indexOf(companion));
    }
    return groups;
}

} // namespace

AssembledNetworks assembleNetworks(const NetworkPieces& pieces, const std::string& system,
                                   bool isPressure) {
    AssembledNetworks assembled;
    assembled.networkOfNode.assign(pieces.nodes.size(), -1);
    Groups groups = groupsOf(pieces);
    std::vector<int> networkOfGroup(pieces.nodes.size(), -1);
    for (const CheckedRun& run : pieces.runs) {
        networkOfGroup[groups.of(indexOf(run.from))] = 0;
    }
    std::vector<int> newIndex(pieces.nodes.size(), -1);
    for (std::size_t i = 0; i < pieces.nodes.size(); ++i) {
        const std::size_t group = groups.of(i);
        if (networkOfGroup[group] < 0) {
            continue;
        }
        if (group == i) {
            networkOfGroup[group] = static_cast<int>(assembled.networks.size());
            assembled.networks.push_back({system, isPressure, {}, {}, {}});
        }
        CheckedNetwork& network = assembled.networks[indexOf(networkOfGroup[group])];
        assembled.networkOfNode[i] = networkOfGroup[group];
        newIndex[i] = static_cast<int>(network.nodes.size());
        network.nodes.push_back(pieces.nodes[i]);
    }
    for (CheckedRun run : pieces.runs) {
        CheckedNetwork& network =
            assembled.networks[indexOf(assembled.networkOfNode[indexOf(run.from)])];
        run.from = newIndex[indexOf(run.from)];
        run.to = run.to < 0 ? -1 : newIndex[indexOf(run.to)];
        network.runs.push_back(std::move(run));
    }
    for (const SearchRoot& root : pieces.roots) {
        const int index = assembled.networkOfNode[indexOf(root.node)];
        if (index < 0) {
            continue;
        }
        CheckedNetwork& network = assembled.networks[indexOf(index)];
        if (network.root.isNull() || root.leadsToEarlierRoot) {
            network.root = root.entity;
        }
    }
    return assembled;
}

} // namespace pipenet
