#pragma once

#include "CheckReport.h"

#include <utility>
#include <vector>

namespace pipenet {

/// A run by which a network closes on itself, for which the module refuses the whole network.
struct Closing {
    int run = -1;  ///< index in the runs
    int node = -1; ///< index of the node that it came back to
    /// The run does not end at the node, but so near that the module takes it for there.
    bool isNearMiss = false;
    /// The module does not notice, beginning where it was begun.
    bool isUnnoticed = false;
    double measured = 0.0; ///< of a near miss, drawing units
    double limit = 0.0;    ///< below which ends are one place, drawing units
    /// Another run that goes straight on through the node, though it does not end there; else -1.
    int passingRun = -1;
    int pipesBefore = 0; ///< how many pipes of that run lie before the node
};

/// Where a search began.
struct SearchRoot {
    int node = -1;
    AcDbObjectId entity;             ///< what it was searched from
    bool leadsToEarlierRoot = false; ///< the search came to the root of an earlier one
};

/// Runs and nodes under construction, of one system. `from` and `to` of the runs are indices in the
/// nodes here.
struct NetworkPieces {
    std::vector<CheckedNode> nodes;
    std::vector<CheckedRun> runs;
    std::vector<Closing> closings;
    std::vector<SearchRoot> roots; ///< in the order of the searches
    /// Pairs of nodes of one network that no run joins.
    std::vector<std::pair<int, int>> companions;
};

/// The pipes and node entities of the ring that `closing` closes, in order around it, beginning
/// with the node that it came back to; the shortest ring there is. Costs about as much as the part
/// of the network within the ring's length; where a run passes the node, as all of `pieces`.
std::vector<AcDbObjectId> ringOf(const NetworkPieces& pieces,
                                 const std::vector<std::vector<int>>& runsAtNode,
                                 const Closing& closing);

/// The runs that begin or end at each node.
std::vector<std::vector<int>> runsAtNodes(const NetworkPieces& pieces);

} // namespace pipenet
