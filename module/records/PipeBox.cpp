#include "records/PipeBox.h"

#include <algorithm>
#include <cmath>

namespace tkvlt {

namespace {

// Well above the few units in the last place by which two curves may miss and still meet.
constexpr double kRelativeSlack = 1e-14;

double LargestCoordinate(const AcGePoint3d& point) {
    return std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
}

constexpr double kTwoPi = 6.283185307179586;
constexpr double kQuarterX[] = {1.0, 0.0, -1.0, 0.0};

bool LiesInPlan(const AcGeCircArc3d& arc) {
    const AcGeVector3d normal = arc.normal();
    return normal.x == 0.0 && normal.y == 0.0;
}

/// Whether the arc passes its circle's easternmost, northernmost, westernmost or southernmost
/// point, or comes near it.
bool PassesQuarter(const AcGeCircArc3d& arc, int quarter) {
    // Far above the rounding of an angle, and a quarter point too many only widens a box.
    constexpr double nearby = 1e-6;
    const double turn = arc.normal().z < 0.0 ? -1.0 : 1.0;
    const double reference = std::atan2(arc.refVec().y, arc.refVec().x);
    const double angle = turn * (quarter * kTwoPi / 4.0 - reference);
    const double passed = std::fmod(angle - arc.startAng() + nearby, kTwoPi);
    return (passed < 0.0 ? passed + kTwoPi : passed) <= arc.sweepAng() + 2.0 * nearby;
}

/// How far the circle passes by an end of the arc. An arc through three points keeps them as its
/// ends, and its circle misses one by a rounding error that grows as two of them come together.
double EndGap(const AcGeCircArc3d& arc, const AcGePoint3d& end) {
    return std::fabs(end.distanceTo(arc.center()) - arc.radius());
}

} // namespace

double RoundingSlack(const AcGePoint3d& point) {
    return LargestCoordinate(point) * kRelativeSlack;
}

double RoundingSlack(const AcGeCircArc3d& arc) {
    return (LargestCoordinate(arc.center()) + arc.radius()) * kRelativeSlack;
}

PlanBox PipeBox(const _Pipe& pipe) {
    return PipeBox(pipe.startPoint, pipe.endPoint, pipe.isArc != 0 ? &pipe.arc : nullptr);
}

PlanBox PipeBox(const AcGePoint3d& startPoint, const AcGePoint3d& endPoint,
                const AcGeCircArc3d* arc) {
    PlanBox box = PlanBox::Of(startPoint);
    box.Include(PlanBox::Of(endPoint));
    if (arc != nullptr) {
        box.Include(ArcBox(*arc));
    }
    return box;
}

PlanBox ArcBox(const AcGeCircArc3d& arc) {
    if (!LiesInPlan(arc)) {
        PlanBox ball = PlanBox::Around(arc.center(), arc.radius());
        // The ends that an arc was given need not lie on the circle.
        ball.Include(PlanBox::Of(arc.startPoint()));
        ball.Include(PlanBox::Of(arc.endPoint()));
        return ball;
    }
    PlanBox box = PlanBox::Of(arc.startPoint());
    box.Include(PlanBox::Of(arc.endPoint()));
    for (int quarter = 0; quarter < 4; ++quarter) {
        if (PassesQuarter(arc, quarter)) {
            const double x = kQuarterX[quarter] * arc.radius();
            const double y = kQuarterX[(quarter + 3) % 4] * arc.radius();
            box.Include(PlanBox::Of(arc.center() + AcGeVector3d(x, y, 0.0)));
        }
    }
    return box.Widened(std::max(EndGap(arc, arc.startPoint()), EndGap(arc, arc.endPoint())));
}

} // namespace tkvlt
