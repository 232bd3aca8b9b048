#pragma once

#include "database/AcDbCurve.h"
#include "geometry/AcGeCircArc3d.h"
#include "geometry/AcGeLineSeg3d.h"
#include "geometry/AcGePoint2d.h"

#include <vector>

/// A lightweight polyline: vertices in the plane of its own coordinate system, straight or arc
/// segments between them. Its parameter is the vertex index plus the part of the segment.
///
/// The bulge of a vertex is the tangent of a quarter of the angle swept to the next vertex,
/// positive counter-clockwise about the normal. An arc segment runs from its first to its second
/// vertex; a negative bulge flips the normal of the arc that getArcSegAt gives.
class AcDbPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbPolyline);

public:
    enum SegType { kLine = 0, kArc = 1, kCoincident = 2, kPoint = 3, kEmpty = 4 };

    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int vertices);
    AcRxObject* clone() const override;

    unsigned int numVerts() const { return static_cast<unsigned int>(vertices_.size()); }
    /// The vertex in world coordinates; eInvalidIndex.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
    /// The vertex in the polyline's own coordinates.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& start, double& end) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus setWidthsAt(unsigned int index, double start, double end);
    /// Inserts before `index`, at the end for numVerts(); eInvalidIndex above. A negative width
    /// counts as 0.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    /// Drops all vertices, or keeps the first `kept` ones when `reuse` is true.
    Acad::ErrorStatus reset(Adesk::Boolean reuse, unsigned int kept);

    /// What lies between the vertex and the next one: kLine, kArc, kCoincident for vertices that
    /// fall together; kPoint at the last vertex of an open polyline; kEmpty beyond.
    SegType segType(unsigned int index) const;
    /// The segment in world coordinates; eInvalidIndex, or eInvalidInput when it is of another
    /// type.
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const;
    Adesk::Boolean isOnlyLines() const;
    Adesk::Boolean hasBulges() const;

    double elevation() const { return elevation_; }
    Acad::ErrorStatus setElevation(double elevation);
    AcGeVector3d normal() const { return normal_; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Adesk::Boolean isClosed() const override { return closed_ ? Adesk::kTrue : Adesk::kFalse; }
    Acad::ErrorStatus setClosed(Adesk::Boolean closed);

    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    host_db::CurvePath path() const override;

protected:
    AcDbPolyline(const AcDbPolyline&) = default;
    ParamStyle paramStyle() const override { return ParamStyle::Vertex; }

private:
    struct Vertex {
        AcGePoint2d point;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
    };

    AcGePoint3d worldPoint(unsigned int index) const;
    unsigned int nextOf(unsigned int index) const;

    std::vector<Vertex> vertices_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double elevation_ = 0.0;
    bool closed_ = false;
};
