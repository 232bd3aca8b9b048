#pragma once

#include "Drawing.h"

#include <vector>

namespace pipenet {

/// The two ends of a curve; both at the origin for one without ends.
struct CurveEnds {
    AcGePoint3d start;
    AcGePoint3d end;
};

/// A curve that is another now than it was.
struct ChangedCurve {
    AcDbObjectId curve;
    CurveEnds before;
    CurveEnds after;
};

/// What cutting has done to a drawing, each list in drawing order.
struct CurveChanges {
    std::vector<ChangedCurve> changed;
    std::vector<AcDbObjectId> added;
    std::vector<AcDbObjectId> erased;

    bool isEmpty() const { return changed.empty() && added.empty() && erased.empty(); }
};

CurveEnds endsOf(const AcDbObjectId& curve);

/// Remembers the entities of a drawing and the ends of some curves, to tell later what has become
/// of them.
class CurvesBefore {
public:
    CurvesBefore(const Drawing& drawing, const AcDbObjectIdArray& curves);

    CurveChanges changes() const;

private:
    const Drawing& drawing_;
    std::vector<AcDbObjectId> entities_;
    std::vector<ChangedCurve> curves_;
};

} // namespace pipenet
