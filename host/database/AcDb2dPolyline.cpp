#include "database/AcDb2dPolyline.h"

#include "database/Normals.h"
#include "database/PolylinePath.h"

ACRX_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, L"POLYLINE")

AcRxObject* AcDb2dPolyline::clone() const {
    return new AcDb2dPolyline(*this);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(const Vertex& vertex) {
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        vertices_.push_back(vertex);
    }
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setPolyType(AcDb::Poly2dType type) {
    return change(type_, type);
}

Acad::ErrorStatus AcDb2dPolyline::setElevation(double elevation) {
    return change(elevation_, elevation);
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDb2dPolyline::setClosed(Adesk::Boolean closed) {
    return change(closed_, closed != 0);
}

host_db::CurvePath AcDb2dPolyline::path() const {
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal_);
    std::vector<host_db::PathVertex> drawn;
    drawn.reserve(vertices_.size());
    for (const Vertex& vertex : vertices_) {
        if ((vertex.flags & host_db::kFrameVertex) == 0) {
            drawn.push_back(
                {toWorld * AcGePoint3d(vertex.point.x, vertex.point.y, elevation_), vertex.bulge});
        }
    }
    return host_db::polylinePath(drawn, closed_, normal_);
}
