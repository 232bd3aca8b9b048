#pragma once

#include "database/AcDbCurve.h"

#include <cstdint>
#include <vector>

/// A polyline of straight segments in space. Its parameter is the index of the drawn vertex plus
/// the part of the segment. Vertices of a splined polyline's frame are kept but not drawn; the
/// source range covers the vertices and the end mark of the sequence.
class AcDb3dPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline);

public:
    /// A vertex in world coordinates.
    struct Vertex {
        AcGePoint3d point;
        /// Flags of the drawing file: 8 added by splining, 16 frame vertex, 32 of a 3D polyline.
        int flags = 0;
        /// The vertex's handle, 0 for one without.
        std::uint64_t handle = 0;
    };

    AcDb3dPolyline() = default;
    AcRxObject* clone() const override;

    const std::vector<Vertex>& vertices() const { return vertices_; }
    Acad::ErrorStatus appendVertex(const Vertex& vertex);
    AcDb::Poly3dType polyType() const { return type_; }
    Acad::ErrorStatus setPolyType(AcDb::Poly3dType type);
    Adesk::Boolean isClosed() const override { return closed_ ? Adesk::kTrue : Adesk::kFalse; }
    Acad::ErrorStatus setClosed(Adesk::Boolean closed);

    host_db::CurvePath path() const override;

protected:
    AcDb3dPolyline(const AcDb3dPolyline&) = default;
    ParamStyle paramStyle() const override { return ParamStyle::Vertex; }

private:
    std::vector<Vertex> vertices_;
    AcDb::Poly3dType type_ = AcDb::k3dSimplePoly;
    bool closed_ = false;
};
