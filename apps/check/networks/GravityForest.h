#pragma once

#include "networks/Closing.h"
#include "networks/GravityDrawing.h"
#include "networks/GravityStarts.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace pipenet {

/// Searches all networks of one gravity system out of one collection: from each node that no
/// earlier search came to, with the pipes that the earlier ones left.
///
/// Where the module gives a network up, at a chain that comes back to what is known, the chain is
/// set aside and the walk goes on, so that the network is seen whole.
class GravityForest {
public:
    /// @param drawing turned to the system, with full pools; what is searched is taken from them.
    explicit GravityForest(GravityDrawing& drawing);

    NetworkPieces grow(const std::vector<GravityStart>& starts);

private:
    /// One search under way.
    struct Tree {
        GravitySearchObject found;
        std::vector<tkvlt::StandingNode> standing;
        std::vector<std::vector<AcDbObjectId>> chains; ///< of each segment, in trace order
        std::vector<CheckedRun> closingRuns;           ///< with nodes of `found`
        std::vector<Closing> closings;                 ///< with closing runs and nodes of `found`
    };

    void growFrom(const GravityStart& start);
    bool placeRoot(const GravityStart& start);
    void step(Tree& tree);
    void setAside(const tkvlt::ClosedChain& chain, int well, Tree& tree);
    CheckedRun closingRun(const tkvlt::ClosedChain& chain, int well, const Tree& tree) const;
    void putBackMergedWells(const Tree& tree);

    void adopt(Tree& tree, const GravityStart& start);
    int nodeFor(const Well& well);
    void adoptRuns(Tree& tree, const std::vector<int>& nodes);
    void adoptClosings(const Tree& tree, const std::vector<int>& nodes);
    AcDbObjectId rootEntity(const GravityStart& start, const Tree& tree) const;

    GravityDrawing& drawing_;
    tkvlt::GravityNetworkSearch& search_;
    NetworkPieces pieces_;
    std::unordered_map<AcDbObjectId, int> nodeOf_; ///< of wells and tanks that were come to
    std::unordered_set<int> rootNodes_;
    std::vector<tkvlt::ClosedChain> closed_;
    AcDbObjectId startId_;
};

} // namespace pipenet
