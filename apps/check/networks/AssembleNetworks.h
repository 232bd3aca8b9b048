#pragma once

#include "networks/Closing.h"

#include <string>
#include <vector>

namespace pipenet {

/// The networks that pieces make up, and where each node went.
struct AssembledNetworks {
    std::vector<CheckedNetwork> networks;
    std::vector<int> networkOfNode; ///< index in `networks`; -1 for a node that no run touches
};

/// Sorts pieces of one system into networks by what hangs together. Networks stand in the order of
/// their first nodes; a node without a run is no network. The root of a network is the start of the
/// search that leads to all others of it, or of the first one when none does.
AssembledNetworks assembleNetworks(const NetworkPieces& pieces, const std::string& system,
                                   bool isPressure);

} // namespace pipenet
