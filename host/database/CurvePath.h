#pragma once

#include "database/AcDbExtents.h"
#include "geometry/AcGeCircArc3d.h"
#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeVector3d.h"

#include <variant>
#include <vector>

namespace host_db {

class NurbsCurve;

/// A straight piece; its parameter runs from 0 to 1.
struct SegmentPiece {
    AcGePoint3d start;
    AcGePoint3d end;
};

/// A piece of an ellipse: centre + u cos t + v sin t for t from `from` to `to` radians, `to` at
/// least `from`. A circular arc has u and v of one length at a right angle. `start` and `end` are
/// the very points that the piece was made from.
struct ArcPiece {
    AcGePoint3d center;
    AcGeVector3d u;
    AcGeVector3d v;
    double from = 0.0;
    double to = 0.0;
    AcGePoint3d start;
    AcGePoint3d end;
};

/// A spline piece; its parameter is the knot value. The curve belongs to the entity.
struct SplinePiece {
    const NurbsCurve* curve = nullptr;
};

using CurvePiece = std::variant<SegmentPiece, ArcPiece, SplinePiece>;

/// A place on a path: the piece and the piece's own parameter.
struct CurvePlace {
    std::size_t piece = 0;
    double local = 0.0;
};

/// A curve as a run of pieces, each starting where the one before ends. It answers what every curve
/// entity is asked: points, lengths, nearest points, extents under a transform.
class CurvePath {
public:
    void add(const CurvePiece& piece) { pieces_.push_back(piece); }
    bool isEmpty() const { return pieces_.empty(); }
    std::size_t size() const { return pieces_.size(); }
    const CurvePiece& operator[](std::size_t index) const { return pieces_[index]; }

    /// Not to be asked of an empty path.
    AcGePoint3d startPoint() const;
    AcGePoint3d endPoint() const;
    double length() const;
    AcGePoint3d pointAt(const CurvePlace& place) const;
    AcGeVector3d derivativeAt(const CurvePlace& place) const;
    /// Length from the start to the place.
    double distanceAt(const CurvePlace& place) const;
    /// The place at a length from 0 to length(), both included; false outside.
    bool placeAtDistance(double distance, CurvePlace& place) const;
    /// The nearest place; the first along the path of equally near ones.
    CurvePlace closestTo(const AcGePoint3d& point) const;
    /// First and last parameter of a piece.
    double firstLocal(std::size_t piece) const;
    double lastLocal(std::size_t piece) const;
    /// Grows `box` by the exact box of the path under the transform.
    void addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const;

private:
    std::vector<CurvePiece> pieces_;
};

/// The circular arc as a piece of a path.
ArcPiece arcPieceOf(const AcGeCircArc3d& arc);

} // namespace host_db
