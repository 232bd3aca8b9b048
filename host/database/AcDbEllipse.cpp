#include "database/AcDbEllipse.h"

#include "database/Normals.h"

#include <cmath>
#include <numbers>

ACRX_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, L"ELLIPSE")

namespace {
constexpr double kTwoPi = 2.0 * std::numbers::pi;
}

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal,
                         const AcGeVector3d& majorAxis, double ratio, double start, double end)
    : center_(center), normal_(host_db::unitNormal(normal)), majorAxis_(majorAxis), ratio_(ratio),
      start_(start), end_(end) {}

AcRxObject* AcDbEllipse::clone() const {
    return new AcDbEllipse(*this);
}

AcGeVector3d AcDbEllipse::minorAxis() const {
    return normal_.crossProduct(majorAxis_) * ratio_;
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& normal,
                                   const AcGeVector3d& majorAxis, double ratio, double start,
                                   double end) {
    if (!(ratio > 0.0)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        center_ = center;
        normal_ = host_db::unitNormal(normal);
        majorAxis_ = majorAxis;
        ratio_ = ratio;
        start_ = start;
        end_ = end;
    }
    return status;
}

Adesk::Boolean AcDbEllipse::isClosed() const {
    // Files write a whole turn with a dozen digits.
    return std::abs(std::abs(end_ - start_) - kTwoPi) < 1e-9 ? Adesk::kTrue : Adesk::kFalse;
}

host_db::CurvePath AcDbEllipse::path() const {
    double sweep = std::isfinite(end_ - start_) ? std::fmod(end_ - start_, kTwoPi) : 0.0;
    sweep = isClosed() != 0 || sweep == 0.0 ? kTwoPi : (sweep > 0.0 ? sweep : sweep + kTwoPi);
    host_db::ArcPiece arc;
    arc.center = center_;
    arc.u = majorAxis_;
    arc.v = minorAxis();
    arc.from = start_;
    arc.to = start_ + sweep;
    const auto at = [&](double angle) {
        return center_ + arc.u * std::cos(angle) + arc.v * std::sin(angle);
    };
    arc.start = at(arc.from);
    arc.end = sweep == kTwoPi ? arc.start : at(arc.to);
    host_db::CurvePath path;
    path.add(arc);
    return path;
}
