#include "dxf/CurveFactory.h"

#include "database/AcDbArc.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbSpline.h"
#include "dxf/EntityGeometry.h"

#include <array>
#include <numbers>
#include <utility>

namespace host_dxf {

namespace {

std::unique_ptr<AcDbEntity> makeLine(const DxfRecord& record) {
    auto line = std::make_unique<AcDbLine>(pointOf(record, 10), pointOf(record, 11));
    line->setNormal(extrusionOf(record));
    return line;
}

std::unique_ptr<AcDbEntity> makeArc(const DxfRecord& record) {
    const AcGeVector3d normal = extrusionOf(record);
    const double radius = record.real(40, 0.0);
    return radius < 0.0
               ? nullptr
               : std::make_unique<AcDbArc>(worldPoint(pointOf(record, 10), normal), normal, radius,
                                           angleOf(record, 50), angleOf(record, 51));
}

std::unique_ptr<AcDbEntity> makeCircle(const DxfRecord& record) {
    const AcGeVector3d normal = extrusionOf(record);
    const double radius = record.real(40, 0.0);
    return radius < 0.0 ? nullptr
                        : std::make_unique<AcDbCircle>(worldPoint(pointOf(record, 10), normal),
                                                       normal, radius);
}

/// One vertex of a lightweight polyline as its groups come.
struct LightVertex {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

std::vector<LightVertex> lightVertices(const DxfRecord& record) {
    const double width = record.real(43, 0.0);
    std::vector<LightVertex> vertices;
    for (const DxfTag& tag : record.tags) {
        if (tag.code == 10) {
            vertices.push_back({AcGePoint2d(tag.real, 0.0), 0.0, width, width});
        }
        if (vertices.empty()) {
            continue;
        }
        LightVertex& vertex = vertices.back();
        if (tag.code == 20) {
            vertex.point.y = tag.real;
        } else if (tag.code == 40) {
            vertex.startWidth = tag.real;
        } else if (tag.code == 41) {
            vertex.endWidth = tag.real;
        } else if (tag.code == 42) {
            vertex.bulge = tag.real;
        }
    }
    return vertices;
}

std::unique_ptr<AcDbEntity> makeLightPolyline(const DxfRecord& record) {
    constexpr std::int64_t closedFlag = 1;
    const std::vector<LightVertex> vertices = lightVertices(record);
    auto polyline = std::make_unique<AcDbPolyline>(static_cast<unsigned>(vertices.size()));
    for (const LightVertex& vertex : vertices) {
        polyline->addVertexAt(polyline->numVerts(), vertex.point, vertex.bulge, vertex.startWidth,
                              vertex.endWidth);
    }
    polyline->setElevation(record.real(38, 0.0));
    polyline->setNormal(extrusionOf(record));
    polyline->setClosed((record.integer(70, 0) & closedFlag) != 0);
    return polyline;
}

std::unique_ptr<AcDbEntity> makeEllipse(const DxfRecord& record) {
    const AcGePoint3d axis = pointOf(record, 11);
    auto ellipse = std::make_unique<AcDbEllipse>();
    const Acad::ErrorStatus status = ellipse->set(
        pointOf(record, 10), extrusionOf(record), AcGeVector3d(axis.x, axis.y, axis.z),
        record.real(40, 1.0), record.real(41, 0.0), record.real(42, 2.0 * std::numbers::pi));
    return status == Acad::eOk ? std::move(ellipse) : nullptr;
}

std::unique_ptr<AcDbEntity> makeSpline(const DxfRecord& record) {
    constexpr std::int64_t closedFlag = 1;
    constexpr std::int64_t greatestDegree = 25;
    const std::int64_t degree = record.integer(71, 3);
    if (degree < 1 || degree > greatestDegree) {
        return nullptr;
    }
    std::vector<AcGePoint3d> points = pointsOf(record, 10);
    std::vector<double> weights = realsOf(record, 41);
    if (weights.size() != points.size()) {
        weights.clear();
    }
    auto spline = std::make_unique<AcDbSpline>();
    if (!points.empty()) {
        host_db::NurbsCurve curve(static_cast<int>(degree), realsOf(record, 40), std::move(points),
                                  std::move(weights));
        if (!curve.isValid() || spline->setNurbs(curve) != Acad::eOk) {
            return nullptr;
        }
    }
    spline->setFitPoints(pointsOf(record, 11));
    spline->setClosed((record.integer(70, 0) & closedFlag) != 0);
    return spline;
}

using Maker = std::unique_ptr<AcDbEntity> (*)(const DxfRecord&);

constexpr std::array<std::pair<std::string_view, Maker>, 6> makers{{
    {"LINE", makeLine},
    {"LWPOLYLINE", makeLightPolyline},
    {"ARC", makeArc},
    {"CIRCLE", makeCircle},
    {"ELLIPSE", makeEllipse},
    {"SPLINE", makeSpline},
}};

} // namespace

std::unique_ptr<AcDbEntity> makeCurve(const DxfRecord& record) {
    for (const auto& [type, maker] : makers) {
        if (record.is(type)) {
            return maker(record);
        }
    }
    return nullptr;
}

} // namespace host_dxf
