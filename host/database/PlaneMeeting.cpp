#include "database/PlaneMeeting.h"

#include "geometry/ProlongedSegment.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host_db {
namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
/// An ellipse whose shorter axis is less than this part of the longer one is seen as flat.
constexpr double kFlat = 1e-10;
/// Centres and radii within this are those of one circle.
constexpr double kSameCircle = 1e-7;

using host_geometry::ProlongedSegment;
using Meetings = std::vector<PlaneMeeting>;

double cross(const AcGeVector2d& a, const AcGeVector2d& b) {
    return a.x * b.y - a.y * b.x;
}

/// Brings a segment's parameter within its bounds when it is beyond them by `slack` at most.
bool settleSegment(const PlanePiece& piece, double slack, double& param) {
    const double play = slack / piece.b.length();
    if ((param < -play && !piece.beforeStart) || (param > 1.0 + play && !piece.beyondEnd)) {
        return false;
    }
    param = std::clamp(param, piece.beforeStart ? param : 0.0, piece.beyondEnd ? param : 1.0);
    return true;
}

/// The same for an arc's angle, which may be whole turns away.
bool settleArc(const PlanePiece& piece, double slack, double& param) {
    double turned = std::fmod(param - piece.from, kTwoPi);
    if (turned < 0.0) {
        turned += kTwoPi;
    }
    const double play = slack / std::max(piece.b.length(), piece.c.length());
    const double sweep = piece.to - piece.from;
    if (turned <= sweep || piece.beyondEnd || piece.beforeStart) {
        param = piece.from + turned;
        return true;
    }
    const bool isAtStart = kTwoPi - turned <= play;
    param = isAtStart ? piece.from : piece.to;
    return isAtStart || turned - sweep <= play;
}

} // namespace

bool settle(const PlanePiece& piece, double slack, double& param) {
    return piece.isArc ? settleArc(piece, slack, param) : settleSegment(piece, slack, param);
}

double angleOnArc(const PlanePiece& arc, const AcGePoint2d& point) {
    const AcGeVector2d offset = point - arc.a;
    const double area = cross(arc.b, arc.c);
    return std::atan2(cross(arc.b, offset) / area, cross(offset, arc.c) / area);
}

std::vector<double> anglesWhere(double a, double b, double c, double slack) {
    const double reach = std::hypot(a, b);
    if (reach == 0.0 || std::abs(c) > reach + slack) {
        return {};
    }
    const double middle = std::atan2(b, a);
    if (std::abs(c) >= reach - slack) {
        return {c < 0.0 ? middle + std::numbers::pi : middle};
    }
    const double half = std::acos(c / reach);
    return {middle - half, middle + half};
}

namespace {

void offer(const PlanePiece& first, const PlanePiece& second, double slack, PlaneMeeting meeting,
           Meetings& found) {
    if (settle(first, slack, meeting.onFirst) && settle(second, slack, meeting.onSecond)) {
        found.push_back(meeting);
    }
}

double paramOnSegment(const PlanePiece& segment, const AcGePoint2d& point) {
    return (point - segment.a).dotProduct(segment.b) / segment.b.lengthSqrd();
}

bool isFlat(const PlanePiece& arc) {
    const double longer = std::max(arc.b.length(), arc.c.length());
    return std::abs(cross(arc.b, arc.c)) <= kFlat * longer * longer;
}

bool isPoint(const PlanePiece& piece) {
    return piece.b.lengthSqrd() == 0.0 && piece.c.lengthSqrd() == 0.0;
}

bool isCircular(const PlanePiece& arc) {
    constexpr double kRound = 1e-12;
    const double radius = arc.b.length();
    return std::abs(arc.c.length() - radius) <= kRound * radius &&
           std::abs(arc.b.dotProduct(arc.c)) <= kRound * radius * radius;
}

ProlongedSegment straight(const PlanePiece& segment) {
    const AcGePoint2d end = segment.a + segment.b;
    return {{segment.a.x, segment.a.y, 0.0},
            {end.x, end.y, 0.0},
            segment.beforeStart,
            segment.beyondEnd};
}

void meetSegments(const PlanePiece& first, const PlanePiece& second, double slack,
                  Meetings& found) {
    const ProlongedSegment one = straight(first);
    const ProlongedSegment other = straight(second);
    AcGeTol tol;
    tol.setEqualPoint(slack);
    AcGePoint3d place;
    if (one.intersectWith(other, place, tol) != Adesk::kFalse) {
        found.push_back({one.paramOf(place), other.paramOf(place)});
    }
}

/// Angles at which an arc's ellipse meets the line of a segment.
std::vector<double> anglesOnLine(const PlanePiece& arc, const PlanePiece& line, double slack) {
    const AcGeVector2d normal = line.b.perpVector().normal();
    return anglesWhere(normal.dotProduct(arc.b), normal.dotProduct(arc.c),
                       normal.dotProduct(line.a - arc.a), slack);
}

void meetArcAndSegment(const PlanePiece& arc, const PlanePiece& segment, bool arcIsFirst,
                       double slack, Meetings& found) {
    for (const double angle : anglesOnLine(arc, segment, slack)) {
        const double along = paramOnSegment(segment, pointAt(arc, angle));
        if (arcIsFirst) {
            offer(arc, segment, slack, {angle, along}, found);
        } else {
            offer(segment, arc, slack, {along, angle}, found);
        }
    }
}

void meetCircles(const PlanePiece& first, const PlanePiece& second, double slack, Meetings& found) {
    const AcGeVector2d between = second.a - first.a;
    const double distance = between.length();
    const double r1 = first.b.length();
    const double r2 = second.b.length();
    const double inner = std::abs(r1 - r2);
    const bool isSame = distance <= kSameCircle && inner <= kSameCircle;
    if (isSame || distance == 0.0 || distance > r1 + r2 + slack || distance < inner - slack) {
        return;
    }
    const AcGeVector2d along = between / distance;
    const bool touches = distance >= r1 + r2 - slack || distance <= inner + slack;
    const double cosine =
        std::clamp((distance * distance + r1 * r1 - r2 * r2) / (2.0 * distance * r1), -1.0, 1.0);
    const double across = touches ? 0.0 : std::sqrt(1.0 - cosine * cosine);
    for (const double side : {-across, across}) {
        const AcGePoint2d point =
            first.a +
            (along * (touches ? std::copysign(1.0, cosine) : cosine) + along.perpVector() * side) *
                r1;
        offer(first, second, slack, {angleOnArc(first, point), angleOnArc(second, point)}, found);
        if (touches) {
            return;
        }
    }
}

/// How far outside (above 0) or inside the ellipse of `second` the place of `first` is.
double outside(const PlanePiece& first, double angle, const PlanePiece& second) {
    const AcGeVector2d offset = pointAt(first, angle) - second.a;
    const double area = cross(second.b, second.c);
    const double u = cross(offset, second.c) / area;
    const double v = cross(second.b, offset) / area;
    return u * u + v * v - 1.0;
}

double crossingBetween(const PlanePiece& first, const PlanePiece& second, double low, double high) {
    const bool lowIsOutside = outside(first, low, second) > 0.0;
    for (int i = 0; i < 100; ++i) {
        const double middle = low + (high - low) / 2.0;
        if (!(low < middle && middle < high)) {
            break;
        }
        ((outside(first, middle, second) > 0.0) == lowIsOutside ? low : high) = middle;
    }
    return high;
}

/// `second` is not flat.
void meetEllipses(const PlanePiece& first, const PlanePiece& second, bool swapped, double slack,
                  Meetings& found) {
    constexpr int kPlaces = 256;
    const bool isWhole = first.beforeStart || first.beyondEnd;
    const double sweep = isWhole ? kTwoPi : first.to - first.from;
    double low = first.from;
    for (int i = 1; i <= kPlaces; ++i) {
        const double high = first.from + sweep * i / kPlaces;
        if ((outside(first, low, second) > 0.0) != (outside(first, high, second) > 0.0)) {
            const double angle = crossingBetween(first, second, low, high);
            const double other = angleOnArc(second, pointAt(first, angle));
            if (swapped) {
                offer(second, first, slack, {other, angle}, found);
            } else {
                offer(first, second, slack, {angle, other}, found);
            }
        }
        low = high;
    }
}

void meetArcs(const PlanePiece& first, const PlanePiece& second, double slack, Meetings& found) {
    if (isCircular(first) && isCircular(second)) {
        meetCircles(first, second, slack, found);
    } else if (!isFlat(second)) {
        meetEllipses(first, second, false, slack, found);
    } else if (!isFlat(first)) {
        meetEllipses(second, first, true, slack, found);
    }
}

} // namespace

AcGePoint2d pointAt(const PlanePiece& piece, double param) {
    return piece.isArc ? piece.a + piece.b * std::cos(param) + piece.c * std::sin(param)
                       : piece.a + piece.b * param;
}

PlanePiece planePiece(const CurvePiece& piece, const AcGeMatrix3d& toPlane) {
    PlanePiece image;
    const auto flat = [](const AcGeVector3d& vector) { return AcGeVector2d(vector.x, vector.y); };
    if (const auto* arc = std::get_if<ArcPiece>(&piece)) {
        image.isArc = true;
        image.a = AcGePoint2d() + flat((toPlane * arc->center).asVector());
        image.b = flat(toPlane * arc->u);
        image.c = flat(toPlane * arc->v);
        image.from = arc->from;
        image.to = arc->to;
        return image;
    }
    const auto& segment = std::get<SegmentPiece>(piece);
    image.a = AcGePoint2d() + flat((toPlane * segment.start).asVector());
    image.b = flat(toPlane * (segment.end - segment.start));
    return image;
}

std::vector<PlaneMeeting> meetings(const PlanePiece& first, const PlanePiece& second,
                                   double slack) {
    Meetings found;
    if (isPoint(first) || isPoint(second)) {
        return found;
    }
    if (first.isArc && second.isArc) {
        meetArcs(first, second, slack, found);
    } else if (first.isArc) {
        meetArcAndSegment(first, second, true, slack, found);
    } else if (second.isArc) {
        meetArcAndSegment(second, first, false, slack, found);
    } else {
        meetSegments(first, second, slack, found);
    }
    std::sort(found.begin(), found.end(),
              [](const PlaneMeeting& a, const PlaneMeeting& b) { return a.onFirst < b.onFirst; });
    return found;
}

} // namespace host_db
