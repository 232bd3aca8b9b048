#include "database/AcDbArc.h"

#include "database/AcDbCircle.h"
#include "database/CircularPath.h"
#include "database/Normals.h"

#include <cmath>
#include <numbers>

ACRX_DEFINE_MEMBERS(AcDbArc, AcDbCurve, L"ARC")

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : center_(center), radius_(radius), startAngle_(startAngle), endAngle_(endAngle) {}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius,
                 double startAngle, double endAngle)
    : center_(center), normal_(host_db::unitNormal(normal)), radius_(radius),
      startAngle_(startAngle), endAngle_(endAngle) {}

AcRxObject* AcDbArc::clone() const {
    return new AcDbArc(*this);
}

double AcDbArc::totalAngle() const {
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    if (!std::isfinite(endAngle_ - startAngle_)) {
        return kTwoPi;
    }
    const double swept = std::fmod(endAngle_ - startAngle_, kTwoPi);
    return swept > 0.0 ? swept : swept + kTwoPi;
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center) {
    return change(center_, center);
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbArc::setRadius(double radius) {
    return radius >= 0.0 ? change(radius_, radius) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
    return change(startAngle_, angle);
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
    return change(endAngle_, angle);
}

Acad::ErrorStatus AcDbArc::getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                             Adesk::Boolean extend) const {
    return extend == 0 ? AcDbCurve::getClosestPointTo(given, point, extend)
                       : AcDbCircle(center_, normal_, radius_).getClosestPointTo(given, point);
}

host_db::CurvePath AcDbArc::path() const {
    return host_db::circularPath(center_, normal_, radius_, startAngle_, totalAngle());
}
