#include "editor/CurveCut.h"

#include "database/AcDbArc.h"
#include "database/AcDbCircle.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace host_ed {
namespace {

template<typename Curve>
std::unique_ptr<Curve> copyOf(const Curve& curve) {
    return std::unique_ptr<Curve>(static_cast<Curve*>(curve.clone()));
}

bool meet(const AcGePoint3d& a, const AcGePoint3d& b) {
    return a.distanceTo(b) <=
           host_geometry::meetingDistance(AcGeContext::gTol, host_geometry::roundingNoise({a, b}));
}

std::unique_ptr<AcDbCurve> partOf(const AcDbLine& line, double from, double to) {
    auto part = copyOf(line);
    const AcGeVector3d along = line.endPoint() - line.startPoint();
    // The ends that stay are the very points they were.
    if (from > 0.0) {
        part->setStartPoint(line.startPoint() + along * from);
    }
    if (to < 1.0) {
        part->setEndPoint(line.startPoint() + along * to);
    }
    return part;
}

std::unique_ptr<AcDbCurve> partOf(const AcDbArc& arc, double from, double to) {
    auto part = copyOf(arc);
    if (from > 0.0) {
        part->setStartAngle(arc.startAngle() + arc.totalAngle() * from);
    }
    if (to < 1.0) {
        part->setEndAngle(arc.startAngle() + arc.totalAngle() * to);
    }
    return part;
}

std::unique_ptr<AcDbCurve> partOf(const AcDbCircle& circle, double from, double to) {
    const auto angle = [](double position) {
        return (position - std::floor(position)) * 2.0 * std::numbers::pi;
    };
    auto part = std::make_unique<AcDbArc>(circle.center(), circle.normal(), circle.radius(),
                                          angle(from), angle(to));
    part->setLayer(circle.layerId());
    part->setColorIndex(circle.colorIndex());
    if (circle.linetypeId() != circle.database()->byLayerLinetype()) {
        part->setLinetype(circle.linetypeId());
    }
    part->setVisibility(circle.visibility());
    part->takeCopyOrigin(circle);
    if (resbuf* xdata = circle.xData()) {
        part->setXData(xdata);
        acutRelRb(xdata);
    }
    return part;
}

/// A vertex of a polyline with what belongs to the segment it begins.
struct Vertex {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

Vertex vertexOf(const AcDbPolyline& polyline, std::size_t index) {
    const auto at = static_cast<unsigned int>(index);
    Vertex vertex;
    polyline.getPointAt(at, vertex.point);
    polyline.getBulgeAt(at, vertex.bulge);
    polyline.getWidthsAt(at, vertex.startWidth, vertex.endWidth);
    return vertex;
}

/// The point of segment `index` at a part of it, in the polyline's own coordinates.
AcGePoint2d pointOn(const AcDbPolyline& polyline, std::size_t index, double part) {
    const std::size_t count = polyline.numVerts();
    const Vertex from = vertexOf(polyline, index);
    const Vertex to = vertexOf(polyline, (index + 1) % count);
    if (from.bulge == 0.0) {
        return from.point + (to.point - from.point) * part;
    }
    AcGePoint3d world;
    polyline.getPointAtParam(static_cast<double>(index) + part, world);
    const AcGePoint3d own = AcGeMatrix3d::worldToPlane(polyline.normal()) * world;
    return {own.x, own.y};
}

/// The vertex at the beginning of what is left of a segment from one part of it to another.
Vertex partVertex(const AcDbPolyline& polyline, std::size_t index, double from, double to) {
    const Vertex whole = vertexOf(polyline, index);
    Vertex vertex = whole;
    if (from > 0.0) {
        vertex.point = pointOn(polyline, index, from);
    }
    if (from > 0.0 || to < 1.0) {
        // A bulge is the tangent of a quarter of the angle, of which a part is left.
        vertex.bulge = whole.bulge == 0.0 ? 0.0 : std::tan(std::atan(whole.bulge) * (to - from));
        const double growth = whole.endWidth - whole.startWidth;
        vertex.startWidth = whole.startWidth + growth * from;
        vertex.endWidth = whole.startWidth + growth * to;
    }
    return vertex;
}

/// `to` may be beyond the last segment of a closed polyline.
std::unique_ptr<AcDbCurve> partOf(const AcDbPolyline& polyline, double from, double to,
                                  std::size_t segments) {
    std::vector<Vertex> vertices;
    const auto last = static_cast<std::size_t>(std::ceil(to)) - 1;
    for (auto i = static_cast<std::size_t>(from); i <= last; ++i) {
        const auto start = static_cast<double>(i);
        vertices.push_back(partVertex(polyline, i % segments, std::max(from - start, 0.0),
                                      std::min(to - start, 1.0)));
    }
    const double endPart = to - static_cast<double>(last);
    Vertex end = vertexOf(polyline, (last + 1) % segments);
    if (endPart < 1.0) {
        end.point = pointOn(polyline, last % segments, endPart);
    } else if (segments < polyline.numVerts()) {
        end = vertexOf(polyline, last + 1);
    }
    vertices.push_back({end.point, 0.0, vertices.back().endWidth, vertices.back().endWidth});
    auto part = copyOf(polyline);
    part->reset(Adesk::kFalse, 0);
    part->setClosed(Adesk::kFalse);
    for (const Vertex& vertex : vertices) {
        part->addVertexAt(part->numVerts(), vertex.point, vertex.bulge, vertex.startWidth,
                          vertex.endWidth);
    }
    return part;
}

} // namespace

bool CurveCut::canCut(const AcDbEntity& entity) {
    const auto* polyline = AcDbPolyline::cast(&entity);
    return AcDbLine::cast(&entity) != nullptr || AcDbArc::cast(&entity) != nullptr ||
           AcDbCircle::cast(&entity) != nullptr ||
           (polyline != nullptr && polyline->numVerts() >= 2);
}

CurveCut::CurveCut(const AcDbCurve& curve)
    : curve_(curve), path_(curve.path()), isClosed_(curve.isClosed() != 0) {}

double CurveCut::position(std::size_t piece, double local) const {
    const AcGePoint3d point = path_.pointAt({piece, local});
    const double first = path_.firstLocal(piece);
    const double last = path_.lastLocal(piece);
    double part = (local - first) / (last - first);
    // A circle's start is no end that places could be brought to.
    if (path_.size() > 1 || !isClosed_) {
        if (meet(point, path_.pointAt({piece, first})) && part < 0.5) {
            part = 0.0;
        } else if (meet(point, path_.pointAt({piece, last}))) {
            part = 1.0;
        }
    }
    const double place = static_cast<double>(piece) + part;
    return isClosed_ && place >= length() ? 0.0 : place;
}

double CurveCut::nearest(const AcGePoint3d& point) const {
    const host_db::CurvePlace place = path_.closestTo(point);
    return position(place.piece, place.local);
}

double CurveCut::nearestInPlan(const AcGePoint2d& point, const PlanView& view) const {
    double least = std::numeric_limits<double>::infinity();
    double best = 0.0;
    for (std::size_t i = 0; i < path_.size(); ++i) {
        const host_db::PlanePiece image = view.pieceOf(path_[i]);
        const double param = closestParam(image, point);
        const double distance = host_db::pointAt(image, param).distanceTo(point);
        if (distance < least) {
            least = distance;
            best = position(i, param);
        }
    }
    return best;
}

std::vector<double> CurveCut::meetings(const std::vector<host_db::PlanePiece>& edges,
                                       const PlanView& view) const {
    std::vector<double> positions;
    for (std::size_t i = 0; i < path_.size(); ++i) {
        const host_db::PlanePiece image = view.pieceOf(path_[i]);
        for (const host_db::PlanePiece& edge : edges) {
            if (areApart(image, edge)) {
                continue;
            }
            for (const auto& meeting : host_db::meetings(image, edge, planSlack(image, edge))) {
                positions.push_back(position(i, meeting.onFirst));
            }
        }
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

std::unique_ptr<AcDbCurve> CurveCut::part(double from, double to) const {
    if (const auto* line = AcDbLine::cast(&curve_)) {
        return partOf(*line, from, to);
    }
    if (const auto* arc = AcDbArc::cast(&curve_)) {
        return partOf(*arc, from, to);
    }
    if (const auto* circle = AcDbCircle::cast(&curve_)) {
        return partOf(*circle, from, to);
    }
    return partOf(*AcDbPolyline::cast(&curve_), from, to, path_.size());
}

std::vector<std::unique_ptr<AcDbCurve>> CurveCut::without(double from, double to) const {
    std::vector<std::unique_ptr<AcDbCurve>> left;
    if (isClosed_) {
        const bool isCircleAtOnePlace = from == to && path_.size() == 1;
        if (!isCircleAtOnePlace) {
            left.push_back(part(to, from > to ? from : from + length()));
        }
        return left;
    }
    const double first = std::min(from, to);
    const double second = std::max(from, to);
    if (first == second && (first <= 0.0 || second >= length())) {
        return left;
    }
    if (first > 0.0) {
        left.push_back(part(0.0, first));
    }
    if (second < length()) {
        left.push_back(part(second, length()));
    }
    return left;
}

} // namespace host_ed
