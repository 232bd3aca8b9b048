#include "database/AcDbSpline.h"

#include "database/PolylinePath.h"

ACRX_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, L"SPLINE")

AcRxObject* AcDbSpline::clone() const {
    return new AcDbSpline(*this);
}

Acad::ErrorStatus AcDbSpline::setNurbs(const host_db::NurbsCurve& curve) {
    return change(curve_, curve);
}

Acad::ErrorStatus AcDbSpline::setFitPoints(const std::vector<AcGePoint3d>& points) {
    return change(fitPoints_, points);
}

Acad::ErrorStatus AcDbSpline::setClosed(Adesk::Boolean closed) {
    return change(closed_, closed != 0);
}

host_db::CurvePath AcDbSpline::path() const {
    host_db::CurvePath path;
    if (curve_.isValid()) {
        path.add(host_db::SplinePiece{&curve_});
        return path;
    }
    std::vector<host_db::PathVertex> vertices;
    vertices.reserve(fitPoints_.size());
    for (const AcGePoint3d& point : fitPoints_) {
        vertices.push_back({point, 0.0});
    }
    return host_db::polylinePath(vertices, closed_, {0.0, 0.0, 1.0});
}
