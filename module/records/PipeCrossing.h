#pragma once

#include "records/Pipe.h"

namespace tkvlt {

/// Whether and where the curves of two pipes meet.
struct PipeCrossing {
    bool hit = false;
    AcGePoint3d point; ///< on the first arc of the two, else on the first pipe
};

/// The meeting of two bounded curves; a pair that meets at two places counts as not meeting.
PipeCrossing CrossingOf(const _Pipe& first, const _Pipe& second);

} // namespace tkvlt
