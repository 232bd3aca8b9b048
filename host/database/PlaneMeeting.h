#pragma once

#include "database/CurvePath.h"
#include "geometry/AcGePoint2d.h"

#include <vector>

namespace host_db {

/// A segment or an arc of an ellipse as it is seen in a plane. Parameters are those of the piece it
/// is the image of: 0 to 1 along a segment, the angle of an arc.
struct PlanePiece {
    bool isArc = false;
    /// A segment is a + b t, an arc a + b cos t + c sin t.
    AcGePoint2d a;
    AcGeVector2d b;
    AcGeVector2d c;
    double from = 0.0;
    double to = 1.0;
    /// Counts beyond its ends: a segment without bounds, an arc as the whole ellipse.
    bool beforeStart = false;
    bool beyondEnd = false;
};

AcGePoint2d pointAt(const PlanePiece& piece, double param);

/// The image of a piece, which is no spline, in the XY plane of the coordinates that the transform
/// leads to.
PlanePiece planePiece(const CurvePiece& piece, const AcGeMatrix3d& toPlane);

/// Brings a parameter within the piece's bounds, when it is beyond them by `slack` drawing units at
/// most, or it is prolonged there; an angle may be whole turns away. False when it is outside.
bool settle(const PlanePiece& piece, double slack, double& param);

/// The angle at which an arc's ellipse, which is not flat, has the point's direction from the
/// centre.
double angleOnArc(const PlanePiece& arc, const AcGePoint2d& point);

/// The angles t at which a cos t + b sin t = c: two, one for a touch within `slack`, or none.
std::vector<double> anglesWhere(double a, double b, double c, double slack);

/// A place that two pieces share: the parameter on each, within its bounds unless it is prolonged.
struct PlaneMeeting {
    double onFirst = 0.0;
    double onSecond = 0.0;
};

/// Where two pieces meet within `slack`, in order along the first. A touch counts once; parallel
/// segments, arcs on one circle and segments or arcs seen as a point have no meeting. Two arcs that
/// are not both circular are searched for crossings at 256 places, so of crossings closer together
/// than that an even number is not seen.
std::vector<PlaneMeeting> meetings(const PlanePiece& first, const PlanePiece& second, double slack);

} // namespace host_db
