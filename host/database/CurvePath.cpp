#include "database/CurvePath.h"

#include "database/CurvePieces.h"

#include <algorithm>

namespace host_db {

double CurvePath::firstLocal(std::size_t piece) const {
    return std::visit([](const auto& it) { return host_db::firstLocal(it); }, pieces_[piece]);
}

double CurvePath::lastLocal(std::size_t piece) const {
    return std::visit([](const auto& it) { return host_db::lastLocal(it); }, pieces_[piece]);
}

AcGePoint3d CurvePath::pointAt(const CurvePlace& place) const {
    return std::visit([&](const auto& it) { return host_db::pointAt(it, place.local); },
                      pieces_[place.piece]);
}

AcGeVector3d CurvePath::derivativeAt(const CurvePlace& place) const {
    return std::visit([&](const auto& it) { return host_db::derivativeAt(it, place.local); },
                      pieces_[place.piece]);
}

AcGePoint3d CurvePath::startPoint() const {
    return pointAt({0, firstLocal(0)});
}

AcGePoint3d CurvePath::endPoint() const {
    return pointAt({size() - 1, lastLocal(size() - 1)});
}

double CurvePath::length() const {
    return isEmpty() ? 0.0 : distanceAt({size() - 1, lastLocal(size() - 1)});
}

double CurvePath::distanceAt(const CurvePlace& place) const {
    const auto lengthTo = [&](std::size_t piece, double local) {
        return std::visit([&](const auto& it) { return host_db::lengthTo(it, local); },
                          pieces_[piece]);
    };
    double sum = 0.0;
    for (std::size_t i = 0; i < place.piece; ++i) {
        sum += lengthTo(i, lastLocal(i));
    }
    return sum + lengthTo(place.piece, place.local);
}

bool CurvePath::placeAtDistance(double distance, CurvePlace& place) const {
    if (isEmpty() || !(distance >= 0.0)) {
        return false;
    }
    double before = 0.0;
    for (std::size_t i = 0; i < size(); ++i) {
        const double whole = std::visit(
            [&](const auto& it) { return host_db::lengthTo(it, host_db::lastLocal(it)); },
            pieces_[i]);
        if (distance <= before + whole) {
            const double local = std::visit(
                [&](const auto& it) { return host_db::localAtLength(it, distance - before); },
                pieces_[i]);
            place = {i, distance == before + whole ? lastLocal(i) : std::min(local, lastLocal(i))};
            return true;
        }
        before += whole;
    }
    return false;
}

CurvePlace CurvePath::closestTo(const AcGePoint3d& point) const {
    CurvePlace best;
    double least = 0.0;
    for (std::size_t i = 0; i < size(); ++i) {
        const CurvePlace place = {
            i, std::visit([&](const auto& it) { return closestLocal(it, point); }, pieces_[i])};
        const double distance = pointAt(place).distanceTo(point);
        if (i == 0 || distance < least) {
            least = distance;
            best = place;
        }
    }
    return best;
}

void CurvePath::addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const {
    for (const CurvePiece& piece : pieces_) {
        std::visit([&](const auto& it) { host_db::addExtents(it, transform, box); }, piece);
    }
}

ArcPiece arcPieceOf(const AcGeCircArc3d& arc) {
    const AcGeVector3d across = arc.normal().crossProduct(arc.refVec());
    return {arc.center(),          arc.refVec() * arc.radius(),
            across * arc.radius(), arc.startAng(),
            arc.endAng(),          arc.startPoint(),
            arc.endPoint()};
}

} // namespace host_db
