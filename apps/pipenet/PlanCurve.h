#pragma once

#include "EmbeddedHost.h"

#include <vector>

namespace pipenet {

/// A place in plan, drawing units.
struct PlanPoint {
    double x = 0.0;
    double y = 0.0;
};

/// The point seen from above.
inline PlanPoint inPlan(const AcGePoint3d& point) {
    return {point.x, point.y};
}

/// One piece of a curve in plan, from where the one before ended.
struct PlanStep {
    PlanPoint end;
    /// Tangent of a quarter of the angle that the piece turns by, positive counter-clockwise; 0 for
    /// a straight piece. At most a quarter turn.
    double bulge = 0.0;
};

/// A curve in plan: straight pieces and true circular arcs. What is neither (ellipses, splines,
/// tilted arcs) is made of many short straight pieces.
struct PlanCurve {
    PlanPoint start;
    std::vector<PlanStep> steps; ///< empty for a curve without points
};

double distance(const PlanPoint& a, const PlanPoint& b);

/// So many straight pieces of what is neither straight nor a circular arc look round.
inline constexpr int kPiecesToLookAt = 96;
/// So many miss it by less than a millionth of its size.
inline constexpr int kPiecesToMeasure = 4096;

/// The plan of a curve entity; without steps when `id` is none.
/// @param piecesOfOthers how many straight pieces stand for a piece that is neither straight nor a
///                       circular arc.
PlanCurve planCurve(const AcDbObjectId& id, int piecesOfOthers = kPiecesToLookAt);

/// Distance from the place to the curve, arcs taken exactly; infinite for a curve without steps.
double distance(const PlanCurve& curve, const PlanPoint& place);

/// Points along the curve, near enough together that arcs look round.
std::vector<PlanPoint> flattened(const PlanCurve& curve);

} // namespace pipenet
