#include "PlanCurve.h"

#include "OpenedObject.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace pipenet {

namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2.0;
constexpr double kFlatTurn = std::numbers::pi / 30.0;

bool isCircleInPlan(const host_db::ArcPiece& arc) {
    const double radius = std::hypot(arc.u.x, arc.u.y);
    const double slack = 1e-9 * radius;
    return std::abs(arc.u.z) <= slack && std::abs(arc.v.z) <= slack &&
           std::abs(std::hypot(arc.v.x, arc.v.y) - radius) <= slack &&
           std::abs(arc.u.x * arc.v.x + arc.u.y * arc.v.y) <= slack * radius;
}

void addArc(PlanCurve& curve, const host_db::ArcPiece& arc) {
    const double turn = arc.to - arc.from;
    const int count = std::max(1, static_cast<int>(std::ceil(turn / kQuarterTurn - 1e-9)));
    const double side = arc.u.x * arc.v.y - arc.u.y * arc.v.x < 0.0 ? -1.0 : 1.0;
    const double bulge = side * std::tan(turn / count / 4.0);
    for (int i = 1; i <= count; ++i) {
        const double angle = arc.from + turn * i / count;
        const AcGePoint3d point = arc.center + arc.u * std::cos(angle) + arc.v * std::sin(angle);
        curve.steps.push_back({inPlan(i == count ? arc.end : point), bulge});
    }
}

void addOther(PlanCurve& curve, const host_db::CurvePath& path, std::size_t piece, int count) {
    const double from = path.firstLocal(piece);
    const double to = path.lastLocal(piece);
    for (int i = 1; i <= count; ++i) {
        const double local = from + (to - from) * i / count;
        curve.steps.push_back({inPlan(path.pointAt({piece, local}))});
    }
}

void addPiece(PlanCurve& curve, const host_db::CurvePath& path, std::size_t piece,
              int piecesOfOthers) {
    if (const auto* segment = std::get_if<host_db::SegmentPiece>(&path[piece])) {
        curve.steps.push_back({inPlan(segment->end)});
        return;
    }
    const auto* arc = std::get_if<host_db::ArcPiece>(&path[piece]);
    if (arc != nullptr && isCircleInPlan(*arc)) {
        addArc(curve, *arc);
    } else {
        addOther(curve, path, piece, piecesOfOthers);
    }
}

double distanceToSegment(const PlanPoint& a, const PlanPoint& b, const PlanPoint& place) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double along =
        square == 0.0 ? 0.0 : ((place.x - a.x) * dx + (place.y - a.y) * dy) / square;
    const double part = std::clamp(along, 0.0, 1.0);
    return distance(PlanPoint{a.x + part * dx, a.y + part * dy}, place);
}

/// Circle of an arc piece: its centre and the angle of its start.
struct Circle {
    PlanPoint center;
    double radius;
    double startAngle;
    double turn; ///< signed
};

Circle circleOf(const PlanPoint& start, const PlanStep& step) {
    const double turn = 4.0 * std::atan(step.bulge);
    // From the chord's middle the centre lies across the chord, to its left for a positive turn.
    const double across = (1.0 - step.bulge * step.bulge) / (4.0 * step.bulge);
    const double dx = step.end.x - start.x;
    const double dy = step.end.y - start.y;
    const PlanPoint center{(start.x + step.end.x) / 2.0 - across * dy,
                           (start.y + step.end.y) / 2.0 + across * dx};
    return {center, distance(center, start), std::atan2(start.y - center.y, start.x - center.x),
            turn};
}

double distanceToArc(const PlanPoint& start, const PlanStep& step, const PlanPoint& place) {
    const Circle circle = circleOf(start, step);
    const double angle = std::atan2(place.y - circle.center.y, place.x - circle.center.x);
    double beyond = (angle - circle.startAngle) * (circle.turn < 0.0 ? -1.0 : 1.0);
    beyond = std::fmod(beyond + 4.0 * std::numbers::pi, 2.0 * std::numbers::pi);
    if (beyond <= std::abs(circle.turn)) {
        return std::abs(distance(circle.center, place) - circle.radius);
    }
    return std::min(distance(start, place), distance(step.end, place));
}

} // namespace

double distance(const PlanPoint& a, const PlanPoint& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

PlanCurve planCurve(const AcDbObjectId& id, int piecesOfOthers) {
    PlanCurve plan;
    const siblings::OpenedObject<AcDbCurve> curve(id, AcDb::kForRead);
    const host_db::CurvePath path = curve ? curve->path() : host_db::CurvePath();
    if (path.isEmpty()) {
        return plan;
    }
    plan.start = inPlan(path.startPoint());
    for (std::size_t piece = 0; piece < path.size(); ++piece) {
        addPiece(plan, path, piece, piecesOfOthers);
    }
    return plan;
}

double distance(const PlanCurve& curve, const PlanPoint& place) {
    double least = std::numeric_limits<double>::infinity();
    PlanPoint start = curve.start;
    for (const PlanStep& step : curve.steps) {
        const double here = step.bulge == 0.0 ? distanceToSegment(start, step.end, place)
                                              : distanceToArc(start, step, place);
        least = std::min(least, here);
        start = step.end;
    }
    return least;
}

std::vector<PlanPoint> flattened(const PlanCurve& curve) {
    std::vector<PlanPoint> points{curve.start};
    for (const PlanStep& step : curve.steps) {
        if (step.bulge != 0.0) {
            const Circle circle = circleOf(points.back(), step);
            const int count = static_cast<int>(std::ceil(std::abs(circle.turn) / kFlatTurn));
            for (int i = 1; i < count; ++i) {
                const double angle = circle.startAngle + circle.turn * i / count;
                points.push_back({circle.center.x + circle.radius * std::cos(angle),
                                  circle.center.y + circle.radius * std::sin(angle)});
            }
        }
        points.push_back(step.end);
    }
    return points;
}

} // namespace pipenet
