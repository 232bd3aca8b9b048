#include "utilities/ClassifyLinePair.h"

namespace {

using namespace tkvlt;

/// An end is at a real meeting point below this distance, whatever the scale.
constexpr double kAtMeetingPoint = 10.0;

double GapTolerance() {
    return GetDwgScale() * 10.0;
}

/// The two ends of a line.
struct Ends {
    AcGePoint3d start;
    AcGePoint3d end;

    explicit Ends(const AcDbLine* line) : start(line->startPoint()), end(line->endPoint()) {}

    bool AnyBelow(double limit, const AcGePoint3d& point) const {
        return point.distanceTo(start) < limit || point.distanceTo(end) < limit;
    }
    bool BothBelow(double limit, const AcGePoint3d& point) const {
        return point.distanceTo(start) < limit && point.distanceTo(end) < limit;
    }
    bool BothBeyond(double limit, const AcGePoint3d& point) const {
        return point.distanceTo(start) > limit && point.distanceTo(end) > limit;
    }
};

/// Both lines are short and lie on top of each other.
bool IsSamePlace(const Ends& first, const Ends& second, double tolerance) {
    return second.BothBelow(tolerance, first.start) && second.BothBelow(tolerance, first.end);
}

int ClassifyMeeting(const Ends& first, const Ends& second, const AcGePoint3d& point) {
    const bool firstEnds = first.AnyBelow(kAtMeetingPoint, point);
    const bool secondEnds = second.AnyBelow(kAtMeetingPoint, point);
    if (firstEnds && secondEnds) {
        return kEndsMeet;
    }
    if (firstEnds) {
        return kFirstEndsOnSecond;
    }
    return secondEnds ? kSecondEndsOnFirst : kCross;
}

/// The point lies on `broken`; `stopping` must end near it, and `broken` must not.
bool IsGap(const Ends& broken, const Ends& stopping, const AcGePoint3d& point, double tolerance) {
    return !stopping.BothBeyond(tolerance, point) && broken.BothBeyond(tolerance, point);
}

int ClassifyExtended(const Ends& first, const Ends& second, const AcGePoint3d& point,
                     double tolerance) {
    if (AcGeLineSeg3d(first.start, first.end).isOn(point)) {
        return IsGap(first, second, point, tolerance) ? kGapOnFirst : kApartOrSame;
    }
    if (AcGeLineSeg3d(second.start, second.end).isOn(point)) {
        return IsGap(second, first, point, tolerance) ? kGapOnSecond : kApartOrSame;
    }
    return kApartOrSame;
}

} // namespace

int PelClassifyLinePair(AcDbLine*& first, AcDbLine*& second, AcGePoint3dArray& points) {
    const double tolerance = GapTolerance();
    const Ends firstEnds(first);
    const Ends secondEnds(second);
    if (IsSamePlace(firstEnds, secondEnds, tolerance)) {
        return kApartOrSame;
    }
    points.setLogicalLength(0);
    first->intersectWith(second, AcDb::kOnBothOperands, points);
    if (points.length() > 1) {
        return kMeetOften;
    }
    if (points.length() == 1) {
        return ClassifyMeeting(firstEnds, secondEnds, points[0]);
    }
    first->intersectWith(second, AcDb::kExtendBoth, points);
    if (points.isEmpty()) {
        return kApartOrSame;
    }
    return ClassifyExtended(firstEnds, secondEnds, points[0], tolerance);
}
