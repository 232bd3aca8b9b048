#include "utilities/LineTests.h"

#include "utilities/FarAway.h"

namespace {

/// Directions agree up to this sine of the angle between them.
constexpr double kParallelSine = 0.1;
/// Lines lie on each other up to this distance sideways.
constexpr double kSideways = 50.0;
/// Play at both ends together.
constexpr double kPlay = 1.0;

AcGeVector3d DirectionOf(const AcGePoint3d& from, const AcGePoint3d& to) {
    AcGeVector3d direction = to - from;
    direction.normalize();
    return direction;
}

AcGePoint3d MiddleOf(const AcGePoint3d& a, const AcGePoint3d& b) {
    return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0, (a.z + b.z) / 2.0};
}

AcGePoint3d ClosestOn(const AcDbLine& line, const AcGePoint3d& point, bool extend) {
    AcGePoint3d closest;
    line.getClosestPointTo(point, closest, extend);
    return closest;
}

/// Puts one end of the line at its place nearest to `first` or, should that be the other end,
/// nearest to `second`.
void CutBack(AcGePoint3d& end, const AcGePoint3d& other, const AcDbLine& line,
             const AcGePoint3d& first, const AcGePoint3d& second) {
    end = ClosestOn(line, first, false);
    if (end.isEqualTo(other)) {
        end = ClosestOn(line, second, false);
    }
}

} // namespace

int PelSeeIfCould(AcGePoint3d p1, AcGePoint3d p2, AcGePoint3d& q1, AcGePoint3d& q2) {
    if (DirectionOf(p1, p2).crossProduct(DirectionOf(q1, q2)).length() > kParallelSine) {
        return 0;
    }
    const AcDbLine p(p1, p2);
    const AcGePoint3d c1 = ClosestOn(p, q1, true);
    const AcGePoint3d c2 = ClosestOn(p, q2, true);
    if (q1.distanceTo(c1) > kSideways) {
        return 0;
    }
    const double length = p1.distanceTo(p2);
    const AcGePoint3d middle = MiddleOf(p1, p2);
    if (middle.distanceTo(MiddleOf(q1, q2)) >= (length + q1.distanceTo(q2)) / 2.0) {
        return 0;
    }
    const double d1 = c1.distanceTo(middle);
    const double d2 = c2.distanceTo(middle);
    const double reach = (length + kPlay) / 2.0;
    if (d1 <= reach && d2 <= reach) {
        return 1;
    }
    const AcDbLine q(q1, q2);
    const double half = length / 2.0;
    if (d1 > half && d2 > half) {
        q1 = ClosestOn(q, p1, false);
        q2 = ClosestOn(q, p2, false);
    } else if (d1 > half) {
        CutBack(q1, q2, q, p1, p2);
    } else {
        CutBack(q2, q1, q, p1, p2);
    }
    return 2;
}

int PelFindClosetPointWithDirection(AcGePoint3d from, AcGePoint3d to, AcGePoint3dArray& points) {
    from.z = 0.0;
    to.z = 0.0;
    const AcGeVector3d direction = DirectionOf(from, to);
    double best = tkvlt::kFarAway;
    int index = -1;
    for (int i = 0; i < points.length(); ++i) {
        const AcGePoint3d inPlan(points[i].x, points[i].y, 0.0);
        if (DirectionOf(from, inPlan).crossProduct(direction).length() > kParallelSine) {
            continue;
        }
        const double distance = points[i].distanceTo(from);
        if (distance < best) {
            best = distance;
            index = i;
        }
    }
    return index;
}
