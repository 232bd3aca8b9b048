#include "database/AcDbLine.h"

#include "database/Normals.h"

ACRX_DEFINE_MEMBERS(AcDbLine, AcDbCurve, L"LINE")

AcRxObject* AcDbLine::clone() const {
    return new AcDbLine(*this);
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
    return change(start_, point);
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
    return change(end_, point);
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbLine::getStartPoint(AcGePoint3d& point) const {
    point = start_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getEndPoint(AcGePoint3d& point) const {
    point = end_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                              Adesk::Boolean extend) const {
    const AcGeVector3d along = end_ - start_;
    const double squared = along.lengthSqrd();
    if (extend == 0 || squared == 0.0) {
        return AcDbCurve::getClosestPointTo(given, point, extend);
    }
    point = start_ + along * ((given - start_).dotProduct(along) / squared);
    return Acad::eOk;
}

host_db::CurvePath AcDbLine::path() const {
    host_db::CurvePath path;
    path.add(host_db::SegmentPiece{start_, end_});
    return path;
}
