#include "database/CurvePieces.h"

#include "database/NumericCurve.h"
#include "database/NurbsCurve.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <numbers>

namespace host_db {
namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

bool isCircular(const ArcPiece& piece) {
    const double u = piece.u.length();
    return std::abs(piece.v.length() - u) <= 1e-12 * u &&
           std::abs(piece.u.dotProduct(piece.v)) <= 1e-12 * u * u;
}

AcGePoint3d onEllipse(const ArcPiece& piece, double angle) {
    return piece.center + piece.u * std::cos(angle) + piece.v * std::sin(angle);
}

/// The angle brought to the first turn that starts at the piece's first angle.
double broughtInto(const ArcPiece& piece, double angle) {
    double turned = std::fmod(angle - piece.from, kTwoPi);
    if (turned < 0.0) {
        turned += kTwoPi;
    }
    return piece.from + turned;
}

/// An ellipse is cut at every eighth of a turn, so that a flat one is still well sampled.
std::vector<double> breaksOf(const ArcPiece& piece) {
    const int parts =
        std::max(1, static_cast<int>(std::ceil((piece.to - piece.from) / (kTwoPi / 8.0))));
    std::vector<double> breaks;
    breaks.reserve(static_cast<std::size_t>(parts) + 1);
    for (int i = 0; i < parts; ++i) {
        breaks.push_back(piece.from + (piece.to - piece.from) * i / parts);
    }
    breaks.push_back(piece.to);
    return breaks;
}

std::vector<double> breaksOf(const SplinePiece& piece) {
    return piece.curve->spans();
}

/// The answers for pieces that have no closed form.
template<typename Piece>
double numericLengthTo(const Piece& piece, double local) {
    return lengthOver([&](double t) { return derivativeAt(piece, t).length(); }, breaksOf(piece),
                      local);
}

template<typename Piece>
double numericLocalAtLength(const Piece& piece, double length) {
    return paramAtLength([&](double t) { return numericLengthTo(piece, t); }, firstLocal(piece),
                         lastLocal(piece), length);
}

template<typename Piece>
double numericClosest(const Piece& piece, const AcGePoint3d& point) {
    return leastOver([&](double t) { return (pointAt(piece, t) - point).lengthSqrd(); },
                     breaksOf(piece));
}

double circularClosest(const ArcPiece& piece, const AcGePoint3d& point) {
    const AcGeVector3d offset = point - piece.center;
    const double alongU = offset.dotProduct(piece.u);
    const double alongV = offset.dotProduct(piece.v);
    // What meets the centre has no direction from it.
    const double atCentre = host_geometry::meetingDistance(
        AcGeContext::gTol, host_geometry::roundingNoise({piece.center, point}));
    if (std::hypot(alongU, alongV) <= atCentre * piece.u.length()) {
        return piece.from;
    }
    const double angle = broughtInto(piece, std::atan2(alongV, alongU));
    if (angle <= piece.to) {
        return angle;
    }
    const double toStart = point.distanceTo(piece.start);
    return toStart <= point.distanceTo(piece.end) ? piece.from : piece.to;
}

} // namespace

double firstLocal(const SegmentPiece& /*piece*/) {
    return 0.0;
}

double firstLocal(const ArcPiece& piece) {
    return piece.from;
}

double firstLocal(const SplinePiece& piece) {
    return piece.curve->startParam();
}

double lastLocal(const SegmentPiece& /*piece*/) {
    return 1.0;
}

double lastLocal(const ArcPiece& piece) {
    return piece.to;
}

double lastLocal(const SplinePiece& piece) {
    return piece.curve->endParam();
}

AcGePoint3d pointAt(const SegmentPiece& piece, double local) {
    return local >= 1.0 ? piece.end : piece.start + (piece.end - piece.start) * local;
}

AcGePoint3d pointAt(const ArcPiece& piece, double local) {
    if (local <= piece.from) {
        return piece.start;
    }
    return local >= piece.to ? piece.end : onEllipse(piece, local);
}

AcGePoint3d pointAt(const SplinePiece& piece, double local) {
    return piece.curve->pointAt(local);
}

AcGeVector3d derivativeAt(const SegmentPiece& piece, double /*local*/) {
    return piece.end - piece.start;
}

AcGeVector3d derivativeAt(const ArcPiece& piece, double local) {
    return piece.v * std::cos(local) - piece.u * std::sin(local);
}

AcGeVector3d derivativeAt(const SplinePiece& piece, double local) {
    return piece.curve->derivativeAt(local);
}

double lengthTo(const SegmentPiece& piece, double local) {
    return piece.start.distanceTo(piece.end) * local;
}

double lengthTo(const ArcPiece& piece, double local) {
    return isCircular(piece) ? piece.u.length() * (local - piece.from)
                             : numericLengthTo(piece, local);
}

double lengthTo(const SplinePiece& piece, double local) {
    return numericLengthTo(piece, local);
}

double localAtLength(const SegmentPiece& piece, double length) {
    const double whole = piece.start.distanceTo(piece.end);
    return whole == 0.0 ? 0.0 : length / whole;
}

double localAtLength(const ArcPiece& piece, double length) {
    if (!isCircular(piece)) {
        return numericLocalAtLength(piece, length);
    }
    const double radius = piece.u.length();
    return radius == 0.0 ? piece.from : piece.from + length / radius;
}

double localAtLength(const SplinePiece& piece, double length) {
    return numericLocalAtLength(piece, length);
}

double closestLocal(const SegmentPiece& piece, const AcGePoint3d& point) {
    const AcGeVector3d along = piece.end - piece.start;
    const double squared = along.lengthSqrd();
    return squared == 0.0 ? 0.0
                          : std::clamp((point - piece.start).dotProduct(along) / squared, 0.0, 1.0);
}

double closestLocal(const ArcPiece& piece, const AcGePoint3d& point) {
    return isCircular(piece) ? circularClosest(piece, point) : numericClosest(piece, point);
}

double closestLocal(const SplinePiece& piece, const AcGePoint3d& point) {
    return numericClosest(piece, point);
}

void addExtents(const SegmentPiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box) {
    box.addPoint(transform * piece.start);
    box.addPoint(transform * piece.end);
}

void addExtents(const ArcPiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box) {
    box.addPoint(transform * piece.start);
    box.addPoint(transform * piece.end);
    const AcGeVector3d u = transform * piece.u;
    const AcGeVector3d v = transform * piece.v;
    if (piece.to - piece.from >= 2.0 * std::numbers::pi) {
        // A whole ellipse reaches as far to both sides.
        const AcGePoint3d center = transform * piece.center;
        const AcGeVector3d reach(std::hypot(u.x, v.x), std::hypot(u.y, v.y), std::hypot(u.z, v.z));
        box.addPoint(center + reach);
        box.addPoint(center - reach);
        return;
    }
    // Along each axis the ellipse turns where its derivative vanishes, at one angle and half a
    // turn on.
    const double turns[] = {std::atan2(v.x, u.x), std::atan2(v.y, u.y), std::atan2(v.z, u.z)};
    for (const double turn : turns) {
        for (const double angle : {turn, turn + std::numbers::pi}) {
            const double inside = broughtInto(piece, angle);
            if (inside <= piece.to) {
                box.addPoint(transform * onEllipse(piece, inside));
            }
        }
    }
}

void addExtents(const SplinePiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box) {
    const std::vector<double> breaks = breaksOf(piece);
    for (unsigned axis = 0; axis < 3; ++axis) {
        for (const double sign : {1.0, -1.0}) {
            const double param = leastOver(
                [&](double t) { return sign * (transform * pointAt(piece, t))[axis]; }, breaks);
            box.addPoint(transform * pointAt(piece, param));
        }
    }
}

} // namespace host_db
