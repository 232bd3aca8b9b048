#include "networks/Closing.h"

#include <algorithm>
#include <deque>
#include <unordered_map>

namespace pipenet {

namespace {

const CheckedRun& runAt(const NetworkPieces& pieces, int run) {
    return pieces.runs[static_cast<std::size_t>(run)];
}

int otherNode(const CheckedRun& run, int node) {
    return run.from == node ? run.to : run.from;
}

void addNode(const NetworkPieces& pieces, int node, std::vector<AcDbObjectId>& ring) {
    const AcDbObjectId& entity = pieces.nodes[static_cast<std::size_t>(node)].entity;
    if (!entity.isNull()) {
        ring.push_back(entity);
    }
}

/// The pipes of the run in the order in which they are met when it is walked from `from`.
void addPipes(const CheckedRun& run, int from, std::vector<AcDbObjectId>& ring) {
    if (run.from == from) {
        ring.insert(ring.end(), run.pipes.begin(), run.pipes.end());
    } else {
        ring.insert(ring.end(), run.pipes.rbegin(), run.pipes.rend());
    }
}

/// The run by which each node was first come to, looking outward from `from` until `to` is found.
std::unordered_map<int, int> lookAround(const NetworkPieces& pieces,
                                        const std::vector<std::vector<int>>& runsAtNode, int from,
                                        int to, int without) {
    std::unordered_map<int, int> cameBy{{from, -1}};
    std::deque<int> front{from};
    while (!front.empty() && cameBy.count(to) == 0) {
        const int node = front.front();
        front.pop_front();
        for (const int run : runsAtNode[static_cast<std::size_t>(node)]) {
            const int next = otherNode(runAt(pieces, run), node);
            if (run != without && next >= 0 && cameBy.emplace(next, run).second) {
                front.push_back(next);
            }
        }
    }
    return cameBy;
}

/// The pieces with the passing run of a closing parted at the node.
NetworkPieces partedAt(const NetworkPieces& pieces, const Closing& closing) {
    NetworkPieces parted;
    parted.nodes = pieces.nodes;
    parted.runs = pieces.runs;
    CheckedRun& before = parted.runs[static_cast<std::size_t>(closing.passingRun)];
    CheckedRun behind = before;
    before.pipes.resize(static_cast<std::size_t>(closing.pipesBefore));
    before.to = closing.node;
    behind.pipes.erase(behind.pipes.begin(), behind.pipes.begin() + closing.pipesBefore);
    behind.from = closing.node;
    parted.runs.push_back(std::move(behind));
    return parted;
}

} // namespace

std::vector<std::vector<int>> runsAtNodes(const NetworkPieces& pieces) {
    std::vector<std::vector<int>> runs(pieces.nodes.size());
    for (std::size_t i = 0; i < pieces.runs.size(); ++i) {
        const CheckedRun& run = pieces.runs[i];
        for (const int node : {run.from, run.to}) {
            if (node >= 0) {
                runs[static_cast<std::size_t>(node)].push_back(static_cast<int>(i));
            }
        }
    }
    return runs;
}

std::vector<AcDbObjectId> ringOf(const NetworkPieces& pieces,
                                 const std::vector<std::vector<int>>& runsAtNode,
                                 const Closing& closing) {
    if (closing.passingRun >= 0) {
        const NetworkPieces parted = partedAt(pieces, closing);
        Closing ending = closing;
        ending.passingRun = -1;
        return ringOf(parted, runsAtNodes(parted), ending);
    }
    const CheckedRun& closingRun = runAt(pieces, closing.run);
    const int last = closingRun.from;
    std::vector<AcDbObjectId> ring;
    addNode(pieces, closing.node, ring);
    // From the last node backwards, so that the way comes out in order from the first one.
    const auto cameBy = lookAround(pieces, runsAtNode, last, closing.node, closing.run);
    if (cameBy.count(closing.node) != 0) {
        for (int node = closing.node; node != last;) {
            const CheckedRun& run = runAt(pieces, cameBy.at(node));
            addPipes(run, node, ring);
            node = otherNode(run, node);
            addNode(pieces, node, ring);
        }
    }
    addPipes(closingRun, last, ring);
    return ring;
}

} // namespace pipenet
