#include "database/AcDbCurve.h"
#include "database/PlaneMeeting.h"
#include "database/ShownPieces.h"
#include "geometry/ProlongedSegment.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using host_db::ArcPiece;
using host_db::CurvePiece;
using host_db::PlaneMeeting;
using host_db::PlanePiece;
using host_db::SegmentPiece;
using host_geometry::ProlongedSegment;

/// A piece and whether it counts beyond its ends.
struct Operand {
    CurvePiece piece;
    bool beforeStart = false;
    bool beyondEnd = false;
};

/// An entity's pieces; prolonged, those at the ends of an open curve count beyond them.
std::vector<Operand> operandsOf(const AcDbEntity& entity, bool prolonged) {
    std::vector<Operand> operands;
    for (const CurvePiece& piece : host_db::shownPieces(entity)) {
        operands.push_back({piece, false, false});
    }
    const auto* curve = AcDbCurve::cast(&entity);
    if (prolonged && curve != nullptr && curve->isClosed() == 0 && !operands.empty()) {
        operands.front().beforeStart = true;
        operands.back().beyondEnd = true;
    }
    return operands;
}

AcGeVector3d directionOf(const CurvePiece& piece) {
    const auto* segment = std::get_if<SegmentPiece>(&piece);
    return segment == nullptr ? AcGeVector3d() : segment->end - segment->start;
}

AcGeVector3d normalOf(const CurvePiece& piece) {
    const auto* arc = std::get_if<ArcPiece>(&piece);
    return arc == nullptr ? AcGeVector3d() : arc->u.crossProduct(arc->v);
}

/// The normal of a plane in which places that the two share in space can be told: that of an arc,
/// unless the other is a segment across it.
AcGeVector3d viewNormal(const CurvePiece& first, const CurvePiece& second) {
    const bool firstIsArc = std::holds_alternative<ArcPiece>(first);
    const bool secondIsArc = std::holds_alternative<ArcPiece>(second);
    const AcGeVector3d normal = normalOf(firstIsArc ? first : second);
    const AcGeVector3d along = directionOf(firstIsArc ? second : first);
    const bool isAcross = !(firstIsArc && secondIsArc) && along.isParallelTo(normal);
    return isAcross ? normal.perpVector() : normal;
}

AcGePoint3d pointAt(const CurvePiece& piece, double param) {
    if (const auto* arc = std::get_if<ArcPiece>(&piece)) {
        return arc->center + arc->u * std::cos(param) + arc->v * std::sin(param);
    }
    const auto& segment = std::get<SegmentPiece>(piece);
    return segment.start + (segment.end - segment.start) * param;
}

PlanePiece imageOf(const Operand& operand, const AcGeMatrix3d& toPlane) {
    PlanePiece image = host_db::planePiece(operand.piece, toPlane);
    image.beforeStart = operand.beforeStart;
    image.beyondEnd = operand.beyondEnd;
    return image;
}

double slackAt(const AcGePoint3d& one, const AcGePoint3d& other) {
    return host_geometry::meetingDistance(AcGeContext::gTol,
                                          host_geometry::roundingNoise({one, other}));
}

/// A point as far out as the piece goes or farther, for the noise that its places carry.
AcGePoint3d farPoint(const CurvePiece& piece) {
    if (const auto* arc = std::get_if<ArcPiece>(&piece)) {
        return arc->center + arc->u + arc->v;
    }
    const auto& segment = std::get<SegmentPiece>(piece);
    const AcGePoint3d origin;
    return segment.start.distanceTo(origin) < segment.end.distanceTo(origin) ? segment.end
                                                                             : segment.start;
}

/// A place that was found: how far along its piece it is, and where.
using Place = std::pair<double, AcGePoint3d>;

void addPlace(const Operand& first, const Operand& second, const PlaneMeeting& meeting,
              double slack, std::vector<Place>& places) {
    const AcGePoint3d point = pointAt(first.piece, meeting.onFirst);
    // What meets in a view may lie one above the other in space.
    if (point.distanceTo(pointAt(second.piece, meeting.onSecond)) <= slack) {
        places.emplace_back(meeting.onFirst, point);
    }
}

/// Two arcs whose planes differ meet at most where the first goes through the plane of the second.
void addMeetingsAcross(const Operand& first, const Operand& second, const AcGeVector3d& normal,
                       double slack, std::vector<Place>& places) {
    const auto& one = std::get<ArcPiece>(first.piece);
    const auto& other = std::get<ArcPiece>(second.piece);
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(normal);
    const PlanePiece firstImage = imageOf(first, toPlane);
    const PlanePiece secondImage = imageOf(second, toPlane);
    for (const double angle :
         host_db::anglesWhere(normal.dotProduct(one.u), normal.dotProduct(one.v),
                              normal.dotProduct(other.center - one.center), slack)) {
        PlaneMeeting meeting{angle,
                             host_db::angleOnArc(secondImage, host_db::pointAt(firstImage, angle))};
        if (host_db::settle(firstImage, slack, meeting.onFirst) &&
            host_db::settle(secondImage, slack, meeting.onSecond)) {
            addPlace(first, second, meeting, slack, places);
        }
    }
}

bool areSegments(const CurvePiece& first, const CurvePiece& second) {
    return std::holds_alternative<SegmentPiece>(first) &&
           std::holds_alternative<SegmentPiece>(second);
}

bool areArcsAcross(const CurvePiece& first, const CurvePiece& second) {
    return std::holds_alternative<ArcPiece>(first) && std::holds_alternative<ArcPiece>(second) &&
           !normalOf(first).isParallelTo(normalOf(second));
}

/// False for no direction at all, and for one too long to be reckoned with: of pieces that reach
/// farther out than some 1e150 units nothing can be told, and they meet nothing.
bool isDirection(const AcGeVector3d& vector) {
    const double length = vector.length();
    return length > 0.0 && std::isfinite(length);
}

ProlongedSegment straight(const Operand& operand) {
    const auto& segment = std::get<SegmentPiece>(operand.piece);
    return {segment.start, segment.end, operand.beforeStart, operand.beyondEnd};
}

void addMeetingOfSegments(const Operand& first, const Operand& second, std::vector<Place>& places) {
    const ProlongedSegment one = straight(first);
    AcGePoint3d point;
    if (one.intersectWith(straight(second), point) != Adesk::kFalse) {
        places.emplace_back(one.paramOf(point), point);
    }
}

void addMeetings(const Operand& first, const Operand& second, std::vector<Place>& places) {
    if (areSegments(first.piece, second.piece)) {
        addMeetingOfSegments(first, second, places);
        return;
    }
    const AcGeVector3d normal = viewNormal(first.piece, second.piece);
    if (!isDirection(normal)) {
        return;
    }
    const double slack = slackAt(farPoint(first.piece), farPoint(second.piece));
    if (areArcsAcross(first.piece, second.piece)) {
        const AcGeVector3d other = normalOf(second.piece);
        if (isDirection(other)) {
            addMeetingsAcross(first, second, other.normal(), slack, places);
        }
        return;
    }
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(normal.normal());
    for (const PlaneMeeting& meeting :
         host_db::meetings(imageOf(first, toPlane), imageOf(second, toPlane), slack)) {
        addPlace(first, second, meeting, slack, places);
    }
}

} // namespace

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect which,
                                            AcGePoint3dArray& points, Adesk::IntPtr /*thisMarker*/,
                                            Adesk::IntPtr /*otherMarker*/) const {
    if (other == nullptr) {
        return Acad::eInvalidInput;
    }
    const bool prolongThis = which == AcDb::kExtendThis || which == AcDb::kExtendBoth;
    const bool prolongOther = which == AcDb::kExtendArg || which == AcDb::kExtendBoth;
    const std::vector<Operand> second = operandsOf(*other, prolongOther);
    const int before = points.length();
    for (const Operand& operand : operandsOf(*this, prolongThis)) {
        std::vector<Place> places;
        for (const Operand& with : second) {
            addMeetings(operand, with, places);
        }
        std::stable_sort(places.begin(), places.end(),
                         [](const Place& a, const Place& b) { return a.first < b.first; });
        for (const Place& place : places) {
            // Where two pieces join, both give the place.
            const bool isKnown =
                std::any_of(points.begin() + before, points.end(), [&](const AcGePoint3d& known) {
                    return known.distanceTo(place.second) <= slackAt(known, place.second);
                });
            if (!isKnown) {
                points.append(place.second);
            }
        }
    }
    return Acad::eOk;
}
