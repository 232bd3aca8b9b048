#include "geometry/AcGeCircArc3d.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

// How an arc meets another curve, in three steps.
//
// 1. Candidates: where the whole circle meets the unbounded line, or the other whole circle. In
//    one plane that is circle against line or circle against circle; otherwise the only places are
//    on the line that the planes share, or where the line pierces the plane.
// 2. Each candidate must lie on both bounded curves.
// 3. Where curves graze each other, a candidate is far less certain than the curves themselves: it
//    may fall just outside although an end of one curve lies on the other. Such an end then takes
//    the candidate's place.

namespace {

/// Arcs whose centres and whose radii are this close lie on one circle, drawing units.
constexpr double sameCircleDistance = 1.0e-7;

/// Up to two places.
struct Places {
    int count = 0;
    std::array<AcGePoint3d, 2> at;

    void add(const AcGePoint3d& place) { at[static_cast<std::size_t>(count++)] = place; }
};

double noiseOf(const AcGeCurve3d& curve, const AcGePoint3d& anchor) {
    AcGePoint3d start = anchor;
    AcGePoint3d end = anchor;
    curve.hasStartPoint(start);
    curve.hasEndPoint(end);
    return host_geometry::roundingNoise({anchor, start, end});
}

/// The two places at `half` to both sides of `middle`, or the one that a tangent touches.
Places toBothSides(const AcGePoint3d& middle, const AcGeVector3d& side, double half) {
    Places places;
    places.add(middle - side * half);
    places.add(middle + side * half);
    return places;
}

/// Where the whole circle meets the unbounded line through `origin` along the unit vector
/// `along`, both in the circle's plane.
Places circleWithLine(const AcGeCircArc3d& arc, const AcGePoint3d& origin,
                      const AcGeVector3d& along, double reach) {
    const AcGePoint3d foot = origin + along * (arc.center() - origin).dotProduct(along);
    AcGeVector3d toFoot = foot - arc.center();
    const double height = toFoot.length();
    Places places;
    if (std::fabs(height - arc.radius()) <= reach) {
        places.add(arc.center() + toFoot.setLength(arc.radius()));
        return places;
    }
    if (height > arc.radius()) {
        return places;
    }
    const double half = std::sqrt((arc.radius() - height) * (arc.radius() + height));
    return toBothSides(foot, along, half);
}

/// Whether the circles touch from outside or inside; `place` on the first is written then.
bool circlesTouch(const AcGeCircArc3d& first, const AcGeCircArc3d& second,
                  const AcGeVector3d& along, double distance, double reach, AcGePoint3d& place) {
    const bool outside = std::fabs(distance - (first.radius() + second.radius())) <= reach;
    const double difference = first.radius() - second.radius();
    if (!outside && std::fabs(distance - std::fabs(difference)) > reach) {
        return false;
    }
    const bool ahead = outside || difference > 0.0;
    place = first.center() + along * (ahead ? first.radius() : -first.radius());
    return true;
}

/// Where two whole circles of one plane meet.
Places circleWithCircle(const AcGeCircArc3d& first, const AcGeCircArc3d& second, double reach) {
    Places places;
    AcGeVector3d along = second.center() - first.center();
    along -= first.normal() * along.dotProduct(first.normal());
    const double distance = along.length();
    const double difference = first.radius() - second.radius();
    const bool oneCircle =
        distance <= sameCircleDistance && std::fabs(difference) <= sameCircleDistance;
    if (oneCircle || distance <= 0.0) {
        return places;
    }
    along /= distance;
    AcGePoint3d touched;
    if (circlesTouch(first, second, along, distance, reach, touched)) {
        places.add(touched);
        return places;
    }
    const double sum = first.radius() + second.radius();
    if (distance > sum || distance < std::fabs(difference)) {
        return places;
    }
    const double ahead = 0.5 * distance + difference * sum / (2.0 * distance);
    const double half =
        std::sqrt(std::max(0.0, (first.radius() - ahead) * (first.radius() + ahead)));
    return toBothSides(first.center() + along * ahead, first.normal().crossProduct(along), half);
}

/// Where the first whole circle meets the line that two planes, not parallel, share.
Places circleWithOtherPlane(const AcGeCircArc3d& first, const AcGeCircArc3d& second, double reach) {
    AcGeVector3d along = first.normal().crossProduct(second.normal());
    along.setLength(1.0);
    const AcGeVector3d towards = along.crossProduct(first.normal());
    const double way =
        -second.plane().signedDistanceTo(first.center()) / towards.dotProduct(second.normal());
    return circleWithLine(first, first.center() + towards * way, along, reach);
}

bool inOnePlane(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, double reach, double noise) {
    const AcGePlane plane = arc.plane();
    AcGePoint3d end;
    if (plane.distanceTo(line.pointOnLine()) > reach) {
        return false;
    }
    if (line.hasEndPoint(end) != Adesk::kFalse) {
        return plane.distanceTo(end) <= reach;
    }
    const double slope =
        std::asin(std::min(1.0, std::fabs(line.direction().dotProduct(plane.normal()))));
    return slope <= host_geometry::agreeingAngle(AcGeTol(), noise, arc.radius());
}

Places candidates(const AcGeCircArc3d& arc, const AcGeLinearEnt3d& line, double reach,
                  double noise) {
    const AcGePlane plane = arc.plane();
    Places places;
    if (inOnePlane(arc, line, reach, noise)) {
        AcGeVector3d along = line.direction();
        along -= plane.normal() * along.dotProduct(plane.normal());
        if (along.lengthSqrd() > 0.0) {
            return circleWithLine(arc, plane.closestPointTo(line.pointOnLine()),
                                  along.setLength(1.0), reach);
        }
        places.add(arc.closestPointTo(line.pointOnLine()));
        return places;
    }
    const double rise = line.direction().dotProduct(plane.normal());
    if (rise != 0.0) {
        const double way = -plane.signedDistanceTo(line.pointOnLine()) / rise;
        places.add(
            arc.closestPointTo(line.closestPointTo(line.pointOnLine() + line.direction() * way)));
    }
    return places;
}

Places candidates(const AcGeCircArc3d& first, const AcGeCircArc3d& second, double reach,
                  double noise) {
    const double angle =
        std::asin(std::min(1.0, first.normal().crossProduct(second.normal()).length()));
    if (angle >
        host_geometry::agreeingAngle(AcGeTol(), noise, std::min(first.radius(), second.radius()))) {
        return circleWithOtherPlane(first, second, reach);
    }
    return first.plane().distanceTo(second.center()) <= reach
               ? circleWithCircle(first, second, reach)
               : Places();
}

/// Chooses, of the candidates, the places that both bounded curves have.
class Selection {
public:
    Selection(const AcGeCircArc3d& arc, const AcGeCurve3d& other, double reach)
        : arc_(arc), other_(other), reach_(reach) {
        addEndContacts(arc);
        addEndContacts(other);
    }

    Places choose(const Places& candidates) const {
        Places chosen;
        for (int i = 0; i < candidates.count; ++i) {
            AcGePoint3d place = candidates.at[static_cast<std::size_t>(i)];
            if (onBoth(place) || endContactFor(candidates, i, place)) {
                chosen.add(place);
            }
        }
        return chosen;
    }

private:
    bool onBoth(const AcGePoint3d& place) const {
        return arc_.distanceTo(place) <= reach_ && other_.distanceTo(place) <= reach_;
    }

    void addEndContacts(const AcGeCurve3d& curve) {
        AcGePoint3d start;
        AcGePoint3d end;
        if (curve.hasStartPoint(start) != Adesk::kFalse && onBoth(start)) {
            endContacts_[endContactCount_++] = start;
        }
        if (curve.hasEndPoint(end) != Adesk::kFalse && onBoth(end)) {
            endContacts_[endContactCount_++] = end;
        }
    }

    /// Writes, as a place on the arc, an end contact that is nearer to this candidate than to the
    /// other.
    bool endContactFor(const Places& candidates, int index, AcGePoint3d& place) const {
        for (std::size_t i = 0; i < endContactCount_; ++i) {
            if (nearestOf(candidates, endContacts_[i]) == index) {
                place = arc_.closestPointTo(endContacts_[i]);
                return true;
            }
        }
        return false;
    }

    static int nearestOf(const Places& candidates, const AcGePoint3d& point) {
        const bool second = candidates.count == 2 &&
                            point.distanceTo(candidates.at[1]) < point.distanceTo(candidates.at[0]);
        return second ? 1 : 0;
    }

    const AcGeCircArc3d& arc_;
    const AcGeCurve3d& other_;
    double reach_;
    /// Ends of one curve that lie on the other.
    std::array<AcGePoint3d, 4> endContacts_;
    std::size_t endContactCount_ = 0;
};

Adesk::Boolean report(const AcGeCircArc3d& arc, Places places, int& n, AcGePoint3d& p1,
                      AcGePoint3d& p2) {
    n = places.count;
    if (n == 0) {
        return Adesk::kFalse;
    }
    if (n == 2 && arc.paramOf(places.at[1]) < arc.paramOf(places.at[0])) {
        std::swap(places.at[0], places.at[1]);
    }
    p1 = places.at[0];
    if (n == 2) {
        p2 = places.at[1];
    }
    return Adesk::kTrue;
}

} // namespace

Adesk::Boolean AcGeCircArc3d::intersectWith(const AcGeLinearEnt3d& line, int& n, AcGePoint3d& p1,
                                            AcGePoint3d& p2, const AcGeTol& tol) const {
    const double noise = std::max(noiseOf(*this, center()), noiseOf(line, line.pointOnLine()));
    const double reach = host_geometry::meetingDistance(tol, noise);
    const Places found = candidates(*this, line, reach, noise);
    return report(*this, Selection(*this, line, reach).choose(found), n, p1, p2);
}

Adesk::Boolean AcGeCircArc3d::intersectWith(const AcGeCircArc3d& arc, int& n, AcGePoint3d& p1,
                                            AcGePoint3d& p2, const AcGeTol& tol) const {
    const double noise = std::max(noiseOf(*this, center()), noiseOf(arc, arc.center()));
    const double reach = host_geometry::meetingDistance(tol, noise);
    const Places found = candidates(*this, arc, reach, noise);
    return report(*this, Selection(*this, arc, reach).choose(found), n, p1, p2);
}
