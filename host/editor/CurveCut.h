#pragma once

#include "database/AcDbCurve.h"
#include "editor/PlanView.h"

#include <memory>
#include <vector>

namespace host_ed {

/// A line, arc, circle or lightweight polyline that parts are taken from.
///
/// A position along it counts its pieces from the start: 1.5 is the middle of the second piece (by
/// the piece's own parameter). Positions within the tolerance of where two pieces join, or of an
/// end, are brought there.
class CurveCut {
public:
    /// Whether parts can be taken from entities of this class.
    static bool canCut(const AcDbEntity& entity);
    /// The curve must be one that canCut accepts, and live longer than this.
    explicit CurveCut(const AcDbCurve& curve);

    bool isClosed() const { return isClosed_; }
    double length() const { return static_cast<double>(path_.size()); }
    /// The position nearest to a point in space.
    double nearest(const AcGePoint3d& point) const;
    /// The position that is nearest in plan.
    double nearestInPlan(const AcGePoint2d& point, const PlanView& view) const;
    /// The positions at which the curve meets the pieces in plan, in order, each once.
    std::vector<double> meetings(const std::vector<host_db::PlanePiece>& edges,
                                 const PlanView& view) const;

    /// What is left when the part from one position to the other goes: of an open curve the pieces
    /// before and behind it, of a closed one the rest from `to` round to `from`. One position twice
    /// parts the curve there. Empty when nothing is left, when an open curve is parted at its end,
    /// and for a circle parted at one place. The pieces are copies of the curve, arcs those of a
    /// circle, in no database.
    std::vector<std::unique_ptr<AcDbCurve>> without(double from, double to) const;

private:
    double position(std::size_t piece, double local) const;
    std::unique_ptr<AcDbCurve> part(double from, double to) const;

    const AcDbCurve& curve_;
    host_db::CurvePath path_;
    bool isClosed_;
};

} // namespace host_ed
