#pragma once

#include "database/AcDbEntity.h"
#include "database/PlaneMeeting.h"
#include "geometry/AcGeMatrix3d.h"

#include <vector>

namespace host_ed {

/// Curves as they are seen in plan, the XY plane of a user coordinate system.
class PlanView {
public:
    /// `ucs` leads from the user coordinate system to the world.
    explicit PlanView(const AcGeMatrix3d& ucs) : toPlan_(ucs.inverse()) {}

    AcGePoint2d pointOf(const AcGePoint3d& world) const;
    host_db::PlanePiece pieceOf(const host_db::CurvePiece& piece) const;
    /// The straight piece between two places.
    static host_db::PlanePiece segment(const AcGePoint2d& from, const AcGePoint2d& to);
    /// What an entity draws: its curves; of a text the sides of its box.
    std::vector<host_db::PlanePiece> shown(const AcDbEntity& entity) const;

private:
    AcGeMatrix3d toPlan_;
};

/// Distance within which places of two pieces meet.
double planSlack(const host_db::PlanePiece& one, const host_db::PlanePiece& other);

/// Whether the pieces come nowhere near each other, told by their boxes.
bool areApart(const host_db::PlanePiece& one, const host_db::PlanePiece& other);

/// The parameter of the piece's place next to the point, within its bounds.
double closestParam(const host_db::PlanePiece& piece, const AcGePoint2d& point);

/// Whether the two share a place: they meet, or one lies on the other.
bool touch(const host_db::PlanePiece& one, const host_db::PlanePiece& other);

/// The entity is drawn: it is visible, and its layer neither off nor frozen.
bool isShown(const AcDbEntity& entity);

} // namespace host_ed
