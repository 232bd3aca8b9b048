#include "database/AcDb3dPolyline.h"

#include "database/PolylinePath.h"

ACRX_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, L"POLYLINE")

AcRxObject* AcDb3dPolyline::clone() const {
    return new AcDb3dPolyline(*this);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(const Vertex& vertex) {
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        vertices_.push_back(vertex);
    }
    return status;
}

Acad::ErrorStatus AcDb3dPolyline::setPolyType(AcDb::Poly3dType type) {
    return change(type_, type);
}

Acad::ErrorStatus AcDb3dPolyline::setClosed(Adesk::Boolean closed) {
    return change(closed_, closed != 0);
}

host_db::CurvePath AcDb3dPolyline::path() const {
    std::vector<host_db::PathVertex> drawn;
    drawn.reserve(vertices_.size());
    for (const Vertex& vertex : vertices_) {
        if ((vertex.flags & host_db::kFrameVertex) == 0) {
            drawn.push_back({vertex.point, 0.0});
        }
    }
    return host_db::polylinePath(drawn, closed_, {0.0, 0.0, 1.0});
}
