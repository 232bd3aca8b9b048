#pragma once

#include "CheckContext.h"
#include "networks/AssembleNetworks.h"

#include <unordered_set>

namespace pipenet {

/// One system while it is checked: its networks are in the report, and its findings go there.
struct SystemUnderCheck {
    const CheckContext& context;
    int system; ///< index in the context's systems
    CheckReport& report;
    /// What lies beside a finding that says why it is in no network; of all systems.
    std::unordered_set<AcDbObjectId>& explained;
    NetworkPieces pieces;
    std::vector<int> networkOfNode; ///< index in the report's networks; -1 for a lone node

    const CheckedSystem& named() const { return context.systems[static_cast<std::size_t>(system)]; }
    /// Adds a finding of this system; returns it so that the rest can be filled in.
    Finding& add(const char* code, Severity severity);
};

/// Takes the pieces of a system into the report's networks.
void placeNetworks(SystemUnderCheck& under, NetworkPieces pieces, bool isPressure);

} // namespace pipenet
