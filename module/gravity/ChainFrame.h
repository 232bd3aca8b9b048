#pragma once

#include <cstddef>
#include <optional>

#include "platform.h"
#include "records/Indices.h"

namespace tkvlt {

/// A way by which a chain may go on.
struct ChainBranch {
    int pipe = -1;
    int outThroughStart = 0;
    AcGePoint3d joint; ///< where the chain enters `pipe`
};

/// The ways out of a pipe in the order in which they are tried.
enum class ChainStage { kEntered, kEndToEnd, kIntoSide, kExhausted };

/// One level of chain tracing: a pipe of the chain and how far its ways out have been tried.
struct ChainFrame {
    int pipe = -1;
    AcGePoint3d seed;    ///< where the chain entered the pipe
    AcGePoint3d freeEnd; ///< where it leaves
    double savedLength = 0.0;
    ChainStage stage = ChainStage::kEntered;
    Indices candidates; ///< pipes to try in this stage
    std::size_t nextCandidate = 0;
    std::optional<ChainBranch> towardsEnd; ///< second way into the pipe that was crossed last
    bool throughChain = false;             ///< the pipes of the chain are ways out like any other
};

/// The end of a pipe that is nearer to a point; the start when both are equally near.
struct NearEnd {
    double distance;
    bool isStart;
};

NearEnd NearestEnd(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& point);

/// The same for a pipe's site or record.
template<class Pipe>
NearEnd NearestEnd(const Pipe& pipe, const AcGePoint3d& point) {
    return NearestEnd(pipe.startPoint, pipe.endPoint, point);
}

} // namespace tkvlt
