#include "database/AcDbCurve.h"

#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>

ACRX_DEFINE_MEMBERS(AcDbCurve, AcDbEntity, nullptr)

using host_db::CurvePath;
using host_db::CurvePlace;

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    point = curve.startPoint();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    point = isClosed() != 0 ? curve.startPoint() : curve.endPoint();
    return Acad::eOk;
}

Adesk::Boolean AcDbCurve::isClosed() const {
    return Adesk::kFalse;
}

Adesk::Boolean AcDbCurve::isPeriodic() const {
    return Adesk::kFalse;
}

double AcDbCurve::paramAt(const CurvePath& path, const CurvePlace& place) const {
    switch (paramStyle()) {
    case ParamStyle::Length:
        return path.distanceAt(place);
    case ParamStyle::Vertex: {
        const double first = path.firstLocal(place.piece);
        const double whole = path.lastLocal(place.piece) - first;
        return static_cast<double>(place.piece) + (place.local - first) / whole;
    }
    case ParamStyle::Local:
        break;
    }
    return place.local;
}

bool AcDbCurve::placeAt(const CurvePath& path, double param, CurvePlace& place) const {
    if (path.isEmpty() || !std::isfinite(param)) {
        return false;
    }
    if (paramStyle() == ParamStyle::Length) {
        return path.placeAtDistance(param, place);
    }
    if (paramStyle() == ParamStyle::Vertex) {
        if (param < 0.0 || param > static_cast<double>(path.size())) {
            return false;
        }
        const std::size_t piece = std::min(static_cast<std::size_t>(param), path.size() - 1);
        const double part = param - static_cast<double>(piece);
        const double first = path.firstLocal(piece);
        place = {piece, first + part * (path.lastLocal(piece) - first)};
        return true;
    }
    place = {0, param};
    return param >= path.firstLocal(0) && param <= path.lastLocal(0);
}

Acad::ErrorStatus AcDbCurve::getStartParam(double& param) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    param = paramAt(curve, {0, curve.firstLocal(0)});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getEndParam(double& param) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    const std::size_t last = curve.size() - 1;
    param = paramAt(curve, {last, curve.lastLocal(last)});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getPointAtParam(double param, AcGePoint3d& point) const {
    const CurvePath curve = path();
    CurvePlace place;
    if (!placeAt(curve, param, place)) {
        return Acad::eInvalidInput;
    }
    point = curve.pointAt(place);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    const CurvePlace place = curve.closestTo(point);
    const AcGePoint3d nearest = curve.pointAt(place);
    const double slack = host_geometry::meetingDistance(
        AcGeContext::gTol, host_geometry::roundingNoise({nearest, point}));
    if (nearest.distanceTo(point) > slack) {
        return Acad::eInvalidInput;
    }
    param = paramAt(curve, place);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtParam(double param, double& dist) const {
    const CurvePath curve = path();
    CurvePlace place;
    if (!placeAt(curve, param, place)) {
        return Acad::eInvalidInput;
    }
    dist = curve.distanceAt(place);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtDist(double dist, double& param) const {
    const CurvePath curve = path();
    CurvePlace place;
    if (!curve.placeAtDistance(dist, place)) {
        return Acad::eInvalidInput;
    }
    param = paramAt(curve, place);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const {
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getDistAtParam(param, dist) : status;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double dist, AcGePoint3d& point) const {
    const CurvePath curve = path();
    CurvePlace place;
    if (!curve.placeAtDistance(dist, place)) {
        return Acad::eInvalidInput;
    }
    point = curve.pointAt(place);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& point,
                                               Adesk::Boolean /*extend*/) const {
    const CurvePath curve = path();
    if (curve.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    point = curve.pointAt(curve.closestTo(given));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const {
    const CurvePath curve = path();
    CurvePlace place;
    if (!placeAt(curve, param, place)) {
        return Acad::eInvalidInput;
    }
    deriv = curve.derivativeAt(place);
    return Acad::eOk;
}

double AcDbCurve::curveLength() const {
    return path().length();
}

bool AcDbCurve::addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const {
    const CurvePath curve = path();
    curve.addExtents(transform, box);
    return !curve.isEmpty();
}
