#include "database/AcDbCircle.h"

#include "database/CircularPath.h"
#include "database/Normals.h"

#include <numbers>

ACRX_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, L"CIRCLE")

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : center_(center), normal_(host_db::unitNormal(normal)), radius_(radius) {}

AcRxObject* AcDbCircle::clone() const {
    return new AcDbCircle(*this);
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center) {
    return change(center_, center);
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
    return radius >= 0.0 ? change(radius_, radius) : Acad::eInvalidInput;
}

Adesk::Boolean AcDbCircle::isClosed() const {
    return Adesk::kTrue;
}

Adesk::Boolean AcDbCircle::isPeriodic() const {
    return Adesk::kTrue;
}

host_db::CurvePath AcDbCircle::path() const {
    return host_db::circularPath(center_, normal_, radius_, 0.0, 2.0 * std::numbers::pi);
}
