#include "dxf/EntityDescription.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbLine.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbSpline.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/DescribedGeometry.h"
#include "platform/WideCharacters.h"

#include <memory>
#include <numbers>

namespace host_dxf {

namespace {

NameValue nameOf(AcDbObjectId record, const wchar_t* missing) {
    const auto* const found = host_db::peek<AcDbSymbolTableRecord>(record);
    return {found == nullptr ? missing : found->name().GetString()};
}

FieldGroup commonGroup(const AcDbEntity& entity) {
    constexpr std::int64_t byLayer = 256;
    NameValue linetype = nameOf(entity.linetypeId(), L"ByLayer");
    const bool usual = linetype == NameValue{L"ByLayer"};
    FieldGroup group{"AcDbEntity", {}};
    group.fields.push_back({8, nameOf(entity.layerId(), L"0")});
    group.fields.push_back({6, std::move(linetype), usual});
    group.fields.push_back(usualInteger(62, entity.colorIndex(), byLayer));
    group.fields.push_back(usualInteger(60, entity.visibility(), 0));
    return group;
}

void describe(const AcDbLine& line, RecordDescription& record) {
    Fields fields;
    addPoint(fields, 10, line.startPoint());
    addPoint(fields, 11, line.endPoint());
    addExtrusion(fields, line.normal());
    record.type = "LINE";
    record.groups.push_back({"AcDbLine", std::move(fields)});
}

Fields circleFields(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) {
    Fields fields;
    addPoint(fields, 10, planePoint(center, normal));
    fields.push_back({40, radius});
    addExtrusion(fields, normal);
    return fields;
}

void describe(const AcDbCircle& circle, RecordDescription& record) {
    record.type = "CIRCLE";
    record.groups.push_back(
        {"AcDbCircle", circleFields(circle.center(), circle.radius(), circle.normal())});
}

void describe(const AcDbArc& arc, RecordDescription& record) {
    record.type = "ARC";
    record.groups.push_back({"AcDbCircle", circleFields(arc.center(), arc.radius(), arc.normal())});
    record.groups.push_back(
        {"AcDbArc", {{50, degreesOf(arc.startAngle())}, {51, degreesOf(arc.endAngle())}}});
}

void describe(const AcDbPolyline& polyline, RecordDescription& record) {
    constexpr std::int64_t closedFlag = 1;
    Fields fields{{90, std::int64_t{polyline.numVerts()}},
                  {70, std::int64_t{polyline.isClosed() != 0}, false, closedFlag},
                  usualReal(38, polyline.elevation(), 0.0)};
    addExtrusion(fields, polyline.normal());
    record.type = "LWPOLYLINE";
    record.groups.push_back({"AcDbPolyline", std::move(fields)});
    record.list.codes = {10, 20, 40, 41, 42, 91};
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint2d point;
        double start = 0.0;
        double end = 0.0;
        double bulge = 0.0;
        polyline.getPointAt(i, point);
        polyline.getWidthsAt(i, start, end);
        polyline.getBulgeAt(i, bulge);
        record.list.elements.push_back({{10, point.x},
                                        {20, point.y},
                                        usualReal(40, start, 0.0),
                                        usualReal(41, end, 0.0),
                                        usualReal(42, bulge, 0.0)});
    }
}

void describe(const AcDbEllipse& ellipse, RecordDescription& record) {
    Fields fields;
    addPoint(fields, 10, ellipse.center());
    addPoint(fields, 11, ellipse.majorAxis().x, ellipse.majorAxis().y, ellipse.majorAxis().z);
    addExtrusion(fields, ellipse.normal());
    fields.push_back({40, ellipse.radiusRatio()});
    fields.push_back({41, ellipse.startParam()});
    fields.push_back({42, ellipse.endParam()});
    record.type = "ELLIPSE";
    record.groups.push_back({"AcDbEllipse", std::move(fields)});
}

void addPoints(const std::vector<AcGePoint3d>& points, int code, FieldList& list) {
    for (const AcGePoint3d& point : points) {
        Fields fields;
        addPoint(fields, code, point);
        list.elements.push_back(std::move(fields));
    }
}

void describe(const AcDbSpline& spline, RecordDescription& record) {
    constexpr std::int64_t closedFlag = 1;
    constexpr std::int64_t rationalFlag = 4;
    const host_db::NurbsCurve& curve = spline.nurbs();
    const auto count = [](std::size_t size) { return static_cast<std::int64_t>(size); };
    const std::int64_t flags =
        (spline.isClosed() != 0 ? closedFlag : 0) | (curve.weights().empty() ? 0 : rationalFlag);
    record.type = "SPLINE";
    record.groups.push_back({"AcDbSpline",
                             {{70, flags, false, closedFlag | rationalFlag},
                              {71, std::int64_t{curve.degree() == 0 ? 3 : curve.degree()}},
                              {72, count(curve.knots().size())},
                              {73, count(curve.points().size())},
                              {74, count(spline.fitPoints().size())}}});
    FieldList& list = record.list;
    list.codes = {40, 41, 10, 20, 30, 11, 21, 31};
    list.scattered = true;
    for (const double knot : curve.knots()) {
        list.elements.push_back({{40, knot}});
    }
    for (const double weight : curve.weights()) {
        list.elements.push_back({{41, weight}});
    }
    addPoints(curve.points(), 10, list);
    addPoints(spline.fitPoints(), 11, list);
}

/// Group 70 and 75 of a heavy polyline. Both classes of it number their kinds alike but for the
/// fitted curve, which only a flat one can be.
Fields heavyFields(double elevation, bool closed, bool fitted, int spline, std::int64_t base) {
    constexpr std::int64_t described = 1 | 2 | 4 | 8;
    constexpr std::int64_t fitFlag = 2;
    constexpr std::int64_t splineFlag = 4;
    const std::int64_t flags =
        base | (closed ? 1 : 0) | (fitted ? fitFlag : 0) | (spline != 0 ? splineFlag : 0);
    return {{66, std::int64_t{1}},
            {10, 0.0},
            {20, 0.0},
            {30, elevation},
            {70, flags, false, described},
            usualInteger(75, spline, 0)};
}

void describe(const AcDb2dPolyline& polyline, RecordDescription& record) {
    const AcDb::Poly2dType type = polyline.polyType();
    const int spline = type == AcDb::k2dQuadSplinePoly    ? 5
                       : type == AcDb::k2dCubicSplinePoly ? 6
                                                          : 0;
    Fields fields = heavyFields(polyline.elevation(), polyline.isClosed() != 0,
                                type == AcDb::k2dFitCurvePoly, spline, 0);
    addExtrusion(fields, polyline.normal());
    record.type = "POLYLINE";
    record.groups.push_back({"AcDb2dPolyline", std::move(fields)});
}

void describe(const AcDb3dPolyline& polyline, RecordDescription& record) {
    constexpr std::int64_t spatialFlag = 8;
    const AcDb::Poly3dType type = polyline.polyType();
    const int spline = type == AcDb::k3dQuadSplinePoly    ? 5
                       : type == AcDb::k3dCubicSplinePoly ? 6
                                                          : 0;
    record.type = "POLYLINE";
    record.groups.push_back(
        {"AcDb3dPolyline", heavyFields(0.0, polyline.isClosed() != 0, false, spline, spatialFlag)});
}

void describe(const AcDbBlockReference& reference, RecordDescription& record) {
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    const bool grid = reference.columns() > 1 || reference.rows() > 1;
    const AcGeScale3d scale = reference.scaleFactors();
    Fields fields{usualInteger(66, attributes->done() ? 0 : 1, 0),
                  {2, nameOf(reference.blockTableRecord(), L"")}};
    addPoint(fields, 10, planePoint(reference.position(), reference.normal()));
    fields.push_back(usualReal(41, scale.sx, 1.0));
    fields.push_back(usualReal(42, scale.sy, 1.0));
    fields.push_back(usualReal(43, scale.sz, 1.0));
    fields.push_back(usualReal(50, degreesOf(reference.rotation()), 0.0));
    fields.push_back(usualInteger(70, reference.columns(), 1));
    fields.push_back(usualInteger(71, reference.rows(), 1));
    fields.push_back(usualReal(44, reference.columnSpacing(), 0.0));
    fields.push_back(usualReal(45, reference.rowSpacing(), 0.0));
    addExtrusion(fields, reference.normal());
    record.type = "INSERT";
    record.groups.push_back({grid ? "AcDbMInsertBlock" : "AcDbBlockReference", std::move(fields)});
}

Fields textFields(const AcDbText& text) {
    constexpr std::int64_t mirrorFlags = 2 | 4;
    const bool plain =
        text.horizontalMode() == AcDb::kTextLeft && text.verticalMode() == AcDb::kTextBase;
    const std::int64_t mirroring =
        (text.isMirroredInX() != 0 ? 2 : 0) | (text.isMirroredInY() != 0 ? 4 : 0);
    NameValue style = nameOf(text.textStyle(), L"Standard");
    const bool usualStyle = style == NameValue{L"Standard"};
    Fields fields;
    addPoint(fields, 10, planePoint(text.position(), text.normal()));
    fields.push_back({40, text.height()});
    fields.push_back({1, std::wstring(text.textStringConst())});
    fields.push_back(usualReal(50, degreesOf(text.rotation()), 0.0));
    fields.push_back(usualReal(41, text.widthFactor(), 1.0));
    fields.push_back(usualReal(51, degreesOf(text.oblique()), 0.0));
    fields.push_back({7, std::move(style), usualStyle});
    fields.push_back(usualInteger(71, mirroring, 0, mirrorFlags));
    fields.push_back(usualInteger(72, text.horizontalMode(), 0));
    addPoint(fields, 11, planePoint(text.alignmentPoint(), text.normal()), plain);
    addExtrusion(fields, text.normal());
    return fields;
}

void describe(const AcDbText& text, RecordDescription& record) {
    record.type = "TEXT";
    record.groups.push_back({"AcDbText", textFields(text)});
    record.groups.push_back({"AcDbText", {usualInteger(73, text.verticalMode(), 0)}});
}

void describe(const AcDbAttribute& attribute, RecordDescription& record) {
    record.type = "ATTRIB";
    record.groups.push_back({"AcDbText", textFields(attribute)});
    record.groups.push_back({"AcDbAttribute",
                             {{2, std::wstring(attribute.tagConst())},
                              {70, std::int64_t{attribute.flags()}},
                              usualInteger(74, attribute.verticalMode(), 0)}});
}

void describe(const AcDbAttributeDefinition& definition, RecordDescription& record) {
    record.type = "ATTDEF";
    record.groups.push_back({"AcDbText", textFields(definition)});
    record.groups.push_back({"AcDbAttributeDefinition",
                             {{3, std::wstring(definition.promptConst())},
                              {2, std::wstring(definition.tagConst())},
                              {70, std::int64_t{definition.flags()}},
                              usualInteger(74, definition.verticalMode(), 0)}});
}

/// Describes the entity when it is of this very class.
template<typename Class>
bool describeAs(const AcDbEntity& entity, RecordDescription& record) {
    const Class* const found = Class::cast(&entity);
    if (found != nullptr) {
        describe(*found, record);
    }
    return found != nullptr;
}

template<typename... Classes>
void describeAsAnyOf(const AcDbEntity& entity, RecordDescription& record) {
    // A class that derives from another one stands before it.
    static_cast<void>((describeAs<Classes>(entity, record) || ...));
}

} // namespace

RecordDescription describeEntity(const AcDbEntity& entity) {
    RecordDescription record;
    record.groups.push_back(commonGroup(entity));
    describeAsAnyOf<AcDbLine, AcDbPolyline, AcDbBlockReference, AcDbAttribute,
                    AcDbAttributeDefinition, AcDbText, AcDbArc, AcDbCircle, AcDb2dPolyline,
                    AcDb3dPolyline, AcDbEllipse, AcDbSpline>(entity, record);
    return record;
}

std::size_t heavyVertexCount(const AcDbEntity& entity) {
    if (const auto* const flat = AcDb2dPolyline::cast(&entity)) {
        return flat->vertices().size();
    }
    const auto* const spatial = AcDb3dPolyline::cast(&entity);
    return spatial == nullptr ? 0 : spatial->vertices().size();
}

bool isInMainPaperSpace(const AcDbEntity& entity) {
    const auto* const block = host_db::peek<AcDbBlockTableRecord>(entity.blockId());
    return block != nullptr && host_text::compareNoCase(block->name(), L"*Paper_Space") == 0;
}

} // namespace host_dxf
