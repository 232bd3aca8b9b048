#pragma once

#include "records/Pipe.h"

namespace tkvlt {

/// The curve that a pipe runs along.
struct PipeCurve {
    const AcGeCircArc3d* arc = nullptr; ///< null for a straight pipe; not owned
    AcGeLineSeg3d line;                 ///< of a straight pipe
};

/// Whether and where the curves of two pipes meet.
struct PipeCrossing {
    bool hit = false;
    AcGePoint3d point; ///< on the first arc of the two, else on the first pipe
};

/// The meeting of two bounded curves; a pair that meets at two places counts as not meeting.
PipeCrossing CrossingOf(const PipeCurve& first, const PipeCurve& second);
PipeCrossing CrossingOf(const _Pipe& first, const _Pipe& second);

} // namespace tkvlt
