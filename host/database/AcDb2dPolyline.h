#pragma once

#include "database/AcDbCurve.h"

#include <cstdint>
#include <vector>

/// A heavy polyline in a plane, as old drawings hold it: vertices with bulges, perhaps fitted or
/// splined. Its parameter is the index of the drawn vertex plus the part of the segment.
///
/// Vertices of a splined polyline's frame are kept but not drawn. The vertices are part of this
/// object: its source range runs from its own start through the end mark of the sequence.
class AcDb2dPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);

public:
    /// A vertex in the polyline's own coordinates; its z is of no account, the elevation counts.
    struct Vertex {
        AcGePoint3d point;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
        /// Flags of the drawing file: 1 added by fitting, 8 added by splining, 16 frame vertex.
        int flags = 0;
        /// The vertex's handle, 0 for one without.
        std::uint64_t handle = 0;
    };

    AcDb2dPolyline() = default;
    AcRxObject* clone() const override;

    const std::vector<Vertex>& vertices() const { return vertices_; }
    Acad::ErrorStatus appendVertex(const Vertex& vertex);
    AcDb::Poly2dType polyType() const { return type_; }
    Acad::ErrorStatus setPolyType(AcDb::Poly2dType type);
    double elevation() const { return elevation_; }
    Acad::ErrorStatus setElevation(double elevation);
    AcGeVector3d normal() const { return normal_; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Adesk::Boolean isClosed() const override { return closed_ ? Adesk::kTrue : Adesk::kFalse; }
    Acad::ErrorStatus setClosed(Adesk::Boolean closed);

    host_db::CurvePath path() const override;

protected:
    AcDb2dPolyline(const AcDb2dPolyline&) = default;
    ParamStyle paramStyle() const override { return ParamStyle::Vertex; }

private:
    std::vector<Vertex> vertices_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double elevation_ = 0.0;
    AcDb::Poly2dType type_ = AcDb::k2dSimplePoly;
    bool closed_ = false;
};
