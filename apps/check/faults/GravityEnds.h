#pragma once

#include "faults/GravityTargets.h"
#include "faults/ShortPipes.h"
#include "gravity/ChainFrame.h"
#include "networks/GravityDrawing.h"
#include "SystemUnderCheck.h"

#include <set>
#include <unordered_set>

namespace pipenet {

/// Looks at the pipe ends of a gravity system out of which no chain goes on and where no well or
/// tank holds them, and says of each what is the matter: one finding for a fault.
class GravityEnds {
public:
    /// @param drawing turned to the system, with full pools. All must outlive this.
    GravityEnds(GravityDrawing& drawing, const ShortPipes& shortPipes, SystemUnderCheck& under);

    /// "end-in-foreign-well", "angle-at-joint", "gap-at-joint" and "dead-end".
    void report();

private:
    struct End {
        int pipe; ///< pool index
        bool isStart;
        AcGePoint3d place;
    };
    using Pair = std::pair<int, int>;

    bool isOpen(const End& end) const;
    bool turnsBack(const End& end, const tkvlt::ChainBranch& way) const;
    void reportEnd(const End& end);
    bool reportForeignWell(const End& end);
    bool reportAngle(const End& end);
    bool reportGap(const End& end, const NearTarget& target);
    void reportDeadEnd(const End& end, const std::optional<NearTarget>& target);
    std::string deadEndSentence(const End& end, const NearTarget& target) const;

    bool meets(const End& end, int other, AcGePoint3d& place) const;
    bool isReportedPair(const End& end, int other);
    int networkOf(const AcDbObjectId& pipe) const;
    Finding& add(const char* code, Severity severity, const End& end);
    const _Pipe& pipeAt(int index) const { return search_.pipePool[index]; }

    GravityDrawing& drawing_;
    const tkvlt::GravityNetworkSearch& search_;
    const ShortPipes& shortPipes_;
    SystemUnderCheck& under_;
    GravityTargets targets_;
    std::set<Pair> reportedPairs_;                   ///< of pipes between which a joint is amiss
    std::unordered_map<AcDbObjectId, int> networks_; ///< of pipes, as indices in the report
};

} // namespace pipenet
