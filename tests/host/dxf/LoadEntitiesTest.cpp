#include "DxfFile.h"
#include "LoadedDrawing.h"

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
#include "database/AcDbUnknownEntity.h"

#include <gtest/gtest.h>

#include <numbers>

using dxf_test::LoadedDrawing;
using dxf_test::TextFile;

namespace {

constexpr double pi = std::numbers::pi;

/// A drawing whose model space holds the entities of `groups`.
LoadedDrawing drawingWith(const TextFile& groups) {
    TextFile file;
    file.section("ENTITIES").raw(groups.bytes()).endSection().endOfFile();
    return LoadedDrawing::fromBytes(file.bytes());
}

void expectPoint(const AcGePoint3d& point, double x, double y, double z) {
    EXPECT_NEAR(point.x, x, 1e-12);
    EXPECT_NEAR(point.y, y, 1e-12);
    EXPECT_NEAR(point.z, z, 1e-12);
}

void expectVector(const AcGeVector3d& vector, double x, double y, double z) {
    expectPoint({vector.x, vector.y, vector.z}, x, y, z);
}

/// Groups code, code + 10, code + 20.
TextFile& point(TextFile& file, int code, double x, double y, double z) {
    return file.group(code, x).group(code + 10, y).group(code + 20, z);
}

TEST(LoadEntities, LineIsInWorldCoordinatesWhateverItsExtrusion) {
    TextFile file;
    file.group(0, "LINE").group(5, "A1").group(8, "PIPE").group(62, "3");
    point(file, 10, 1, 2, 3);
    point(file, 11, 4.5, 5, 6);
    point(file, 210, 0, 0, -1);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const line = drawing.modelEntity<AcDbLine>(0);
    ASSERT_NE(line, nullptr);
    expectPoint(line->startPoint(), 1, 2, 3);
    expectPoint(line->endPoint(), 4.5, 5, 6);
    expectVector(line->normal(), 0, 0, -1);
    CString layer;
    ASSERT_EQ(line->layer(layer), Acad::eOk);
    EXPECT_STREQ(layer.GetString(), L"PIPE");
    EXPECT_EQ(line->colorIndex(), 3);
    EXPECT_EQ(line->objectId().handle().value(), 0xA1U);
    EXPECT_FALSE(line->isModified());
}

TEST(LoadEntities, ArcIsInItsOwnCoordinates) {
    TextFile file;
    file.group(0, "ARC").group(8, "0");
    point(file, 10, 2, 3, 1);
    file.group(40, 5.0).group(50, 0.0).group(51, 90.0);
    point(file, 210, 0, 0, -1);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const arc = drawing.modelEntity<AcDbArc>(0);
    ASSERT_NE(arc, nullptr);
    // For the normal -Z the own X axis is -X of the world and Y stays.
    expectPoint(arc->center(), -2, 3, -1);
    EXPECT_EQ(arc->radius(), 5.0);
    EXPECT_NEAR(arc->startAngle(), 0.0, 1e-15);
    EXPECT_NEAR(arc->endAngle(), pi / 2, 1e-15);
    AcGePoint3d end;
    ASSERT_EQ(arc->getStartPoint(end), Acad::eOk);
    expectPoint(end, -7, 3, -1);
    ASSERT_EQ(arc->getEndPoint(end), Acad::eOk);
    expectPoint(end, -2, 8, -1);
}

TEST(LoadEntities, CircleOnAnUprightPlane) {
    TextFile file;
    file.group(0, "CIRCLE").group(8, "0");
    point(file, 10, 2, 3, 4);
    file.group(40, 1.5);
    point(file, 210, 1, 0, 0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const circle = drawing.modelEntity<AcDbCircle>(0);
    ASSERT_NE(circle, nullptr);
    // For the normal X the own axes are Y and Z of the world.
    expectPoint(circle->center(), 4, 2, 3);
    EXPECT_EQ(circle->radius(), 1.5);
}

TEST(LoadEntities, ExtrusionWithoutLengthCountsAsUpright) {
    TextFile file;
    file.group(0, "CIRCLE").group(8, "0");
    point(file, 10, 2, 3, 4);
    file.group(40, 1.0);
    point(file, 210, 0, 0, 0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const circle = drawing.modelEntity<AcDbCircle>(0);
    ASSERT_NE(circle, nullptr);
    expectPoint(circle->center(), 2, 3, 4);
    expectVector(circle->normal(), 0, 0, 1);
}

TEST(LoadEntities, LightPolylineKeepsBulgesWidthsElevation) {
    TextFile file;
    file.group(0, "LWPOLYLINE").group(8, "0").group(90, "3").group(70, "1").group(38, 2.0);
    file.group(10, 0.0).group(20, 0.0).group(40, 0.25).group(41, 0.5).group(42, 1.0);
    file.group(10, 4.0).group(20, 0.0);
    file.group(10, 4.0).group(20, 3.0).group(42, -0.5);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const polyline = drawing.modelEntity<AcDbPolyline>(0);
    ASSERT_NE(polyline, nullptr);
    ASSERT_EQ(polyline->numVerts(), 3U);
    EXPECT_TRUE(polyline->isClosed());
    AcGePoint3d place;
    ASSERT_EQ(polyline->getPointAt(2, place), Acad::eOk);
    expectPoint(place, 4, 3, 2);
    double bulge = 0.0;
    polyline->getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, 1.0);
    polyline->getBulgeAt(1, bulge);
    EXPECT_EQ(bulge, 0.0);
    polyline->getBulgeAt(2, bulge);
    EXPECT_EQ(bulge, -0.5);
    double from = 0.0;
    double to = 0.0;
    polyline->getWidthsAt(0, from, to);
    EXPECT_EQ(from, 0.25);
    EXPECT_EQ(to, 0.5);
    EXPECT_EQ(polyline->segType(0), AcDbPolyline::kArc);
    EXPECT_EQ(polyline->segType(1), AcDbPolyline::kLine);
}

TEST(LoadEntities, LightPolylineOfOneWidthBelowDownwardNormal) {
    TextFile file;
    file.group(0, "LWPOLYLINE").group(8, "0").group(90, "2").group(70, "0").group(43, 0.75);
    file.group(38, 1.0).group(10, 1.0).group(20, 2.0).group(10, 3.0).group(20, 4.0);
    point(file, 210, 0, 0, -1);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const polyline = drawing.modelEntity<AcDbPolyline>(0);
    ASSERT_NE(polyline, nullptr);
    ASSERT_EQ(polyline->numVerts(), 2U);
    EXPECT_FALSE(polyline->isClosed());
    AcGePoint3d place;
    polyline->getPointAt(1, place);
    expectPoint(place, -3, 4, -1);
    double from = 0.0;
    double to = 0.0;
    polyline->getWidthsAt(1, from, to);
    EXPECT_EQ(from, 0.75);
    EXPECT_EQ(to, 0.75);
}

TextFile& vertex(TextFile& file, double x, double y, double z, const char* flags) {
    file.group(0, "VERTEX").group(8, "0");
    point(file, 10, x, y, z);
    return file.group(70, flags);
}

TEST(LoadEntities, HeavyFlatPolylineTakesItsVertices) {
    TextFile file;
    file.group(0, "POLYLINE").group(5, "20").group(8, "0").group(66, "1").group(70, "1");
    point(file, 10, 0, 0, 7);
    file.group(40, 0.5).group(41, 0.6);
    vertex(file, 1, 2, 7, "0").group(42, 0.25).group(5, "21");
    vertex(file, 3, 4, 7, "16").group(5, "22").group(40, 0.1).group(41, 0.2);
    file.group(0, "SEQEND").group(5, "23").group(8, "0");
    file.group(0, "POINT").group(5, "24").group(8, "0");
    const LoadedDrawing drawing = drawingWith(file);
    ASSERT_EQ(drawing.modelSpace().size(), 2U);
    const auto* const polyline = drawing.modelEntity<AcDb2dPolyline>(0);
    ASSERT_NE(polyline, nullptr);
    EXPECT_TRUE(polyline->isClosed());
    EXPECT_EQ(polyline->elevation(), 7.0);
    EXPECT_EQ(polyline->polyType(), AcDb::k2dSimplePoly);
    ASSERT_EQ(polyline->vertices().size(), 2U);
    const auto& first = polyline->vertices()[0];
    expectPoint(first.point, 1, 2, 7);
    EXPECT_EQ(first.bulge, 0.25);
    EXPECT_EQ(first.startWidth, 0.5) << "the polyline's own width where the vertex has none";
    EXPECT_EQ(first.endWidth, 0.6);
    EXPECT_EQ(first.handle, 0x21U);
    const auto& second = polyline->vertices()[1];
    EXPECT_EQ(second.startWidth, 0.1);
    EXPECT_EQ(second.endWidth, 0.2);
    EXPECT_EQ(second.flags, 16);
    // Two lines of SECTION and two of its name come before; the range ends with the SEQEND.
    const std::string_view bytes = drawing.source().file().bytes();
    const auto range = polyline->sourceRange();
    EXPECT_EQ(range.firstLine, 5U);
    EXPECT_TRUE(bytes.substr(range.begin).starts_with("0\nPOLYLINE\n"));
    EXPECT_TRUE(bytes.substr(range.end).starts_with("0\nPOINT\n"));
}

TEST(LoadEntities, HeavyPolylineInSpaceAndItsSmoothing) {
    TextFile file;
    file.group(0, "POLYLINE").group(8, "0").group(70, "12").group(75, "6");
    vertex(file, 1, 2, 3, "48");
    vertex(file, 4, 5, 6, "40");
    file.group(0, "SEQEND");
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const polyline = drawing.modelEntity<AcDb3dPolyline>(0);
    ASSERT_NE(polyline, nullptr);
    EXPECT_EQ(polyline->polyType(), AcDb::k3dCubicSplinePoly);
    EXPECT_FALSE(polyline->isClosed());
    ASSERT_EQ(polyline->vertices().size(), 2U);
    expectPoint(polyline->vertices()[1].point, 4, 5, 6);
    EXPECT_EQ(polyline->vertices()[0].flags, 48);
}

TEST(LoadEntities, MeshPolylineIsKeptUnknownAsAWhole) {
    TextFile file;
    file.group(0, "POLYLINE").group(8, "NET").group(70, "64").group(71, "1").group(72, "1");
    vertex(file, 1, 2, 3, "192");
    file.group(0, "VERTEX").group(8, "NET").group(10, 0.0).group(70, "128").group(71, "1");
    file.group(0, "SEQEND");
    file.group(0, "LINE").group(8, "0");
    const LoadedDrawing drawing = drawingWith(file);
    ASSERT_EQ(drawing.modelSpace().size(), 2U);
    const auto* const mesh = drawing.modelEntity<AcDbUnknownEntity>(0);
    ASSERT_NE(mesh, nullptr);
    EXPECT_STREQ(mesh->dxfTypeName(), L"POLYLINE");
    ASSERT_EQ(mesh->outline().size(), 1U) << "the face has no place of its own";
    expectPoint(mesh->outline()[0], 1, 2, 3);
}

TEST(LoadEntities, Ellipse) {
    TextFile file;
    file.group(0, "ELLIPSE").group(8, "0");
    point(file, 10, 1, 2, 3);
    point(file, 11, 4, 0, 0);
    file.group(40, 0.5).group(41, 0.0).group(42, pi / 2);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const ellipse = drawing.modelEntity<AcDbEllipse>(0);
    ASSERT_NE(ellipse, nullptr);
    expectPoint(ellipse->center(), 1, 2, 3);
    expectVector(ellipse->majorAxis(), 4, 0, 0);
    EXPECT_EQ(ellipse->radiusRatio(), 0.5);
    AcGePoint3d end;
    ASSERT_EQ(ellipse->getEndPoint(end), Acad::eOk);
    expectPoint(end, 1, 4, 3);
}

TEST(LoadEntities, SplineByControlPoints) {
    TextFile file;
    file.group(0, "SPLINE").group(8, "0").group(70, "8").group(71, "2").group(72, "6");
    for (const double knot : {0.0, 0.0, 0.0, 1.0, 1.0, 1.0}) {
        file.group(40, knot);
    }
    point(file, 10, 0, 0, 0);
    point(file, 10, 1, 2, 0);
    point(file, 10, 2, 0, 1);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const spline = drawing.modelEntity<AcDbSpline>(0);
    ASSERT_NE(spline, nullptr);
    EXPECT_EQ(spline->degree(), 2);
    EXPECT_EQ(spline->numControlPoints(), 3);
    AcGePoint3d end;
    ASSERT_EQ(spline->getEndPoint(end), Acad::eOk);
    expectPoint(end, 2, 0, 1);
}

TEST(LoadEntities, SplineByFitPointsAloneAndOneThatIsNone) {
    TextFile file;
    file.group(0, "SPLINE").group(8, "0").group(70, "0").group(71, "3").group(74, "2");
    point(file, 11, 1, 1, 0);
    point(file, 11, 5, 6, 0);
    file.group(0, "SPLINE").group(8, "0").group(71, "3").group(40, 0.0);
    point(file, 10, 0, 0, 0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const spline = drawing.modelEntity<AcDbSpline>(0);
    ASSERT_NE(spline, nullptr);
    EXPECT_EQ(spline->numFitPoints(), 2);
    const auto* const odd = drawing.modelEntity<AcDbUnknownEntity>(1);
    ASSERT_NE(odd, nullptr) << "one knot fits no spline: kept as it is";
    EXPECT_STREQ(odd->dxfTypeName(), L"SPLINE");
}

TEST(LoadEntities, TextWithItsPlaces) {
    TextFile file;
    file.group(0, "TEXT").group(8, "0").group(1, "DN\\U+7BA1^ 2").group(7, "HZ");
    point(file, 10, 1, 2, 0);
    file.group(40, 2.5).group(41, 0.7).group(50, 90.0).group(51, 45.0).group(71, "6");
    file.group(72, "1").group(73, "2");
    point(file, 11, 3, 4, 0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const text = drawing.modelEntity<AcDbText>(0);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->textStringConst(), L"DN\x7BA1^2");
    expectPoint(text->position(), 1, 2, 0);
    expectPoint(text->alignmentPoint(), 3, 4, 0);
    EXPECT_EQ(text->height(), 2.5);
    EXPECT_EQ(text->widthFactor(), 0.7);
    EXPECT_NEAR(text->rotation(), pi / 2, 1e-15);
    EXPECT_NEAR(text->oblique(), pi / 4, 1e-15);
    EXPECT_EQ(text->horizontalMode(), AcDb::kTextCenter);
    EXPECT_EQ(text->verticalMode(), AcDb::kTextVertMid);
    EXPECT_TRUE(text->isMirroredInX());
    EXPECT_TRUE(text->isMirroredInY());
    EXPECT_STREQ(host_db::peek<AcDbSymbolTableRecord>(text->textStyle())->name(), L"HZ");
}

TEST(LoadEntities, ReferenceWithAttributes) {
    TextFile file;
    file.section("BLOCKS").group(0, "BLOCK").group(8, "0").group(2, "WELL").group(70, "2");
    point(file, 10, 0.5, 0, 0);
    file.group(0, "ATTDEF").group(8, "0").group(2, "NO").group(3, "Number").group(1, "0");
    file.group(70, "4").group(74, "3").group(40, 1.0);
    file.group(0, "ENDBLK").endSection();
    file.section("ENTITIES").group(0, "INSERT").group(5, "50").group(8, "0").group(66, "1");
    file.group(2, "well");
    point(file, 10, 2, 3, 0);
    file.group(41, 2.0).group(42, 3.0).group(43, 4.0).group(50, 180.0);
    point(file, 210, 0, 0, -1);
    file.group(0, "ATTRIB").group(5, "51").group(8, "0").group(1, "W-1").group(2, "NO");
    file.group(40, 1.0).group(70, "1");
    file.group(0, "SEQEND").group(5, "52").group(8, "0");
    file.group(0, "LINE").group(5, "53").group(8, "0").endSection().endOfFile();
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(file.bytes());
    ASSERT_EQ(drawing.modelSpace().size(), 2U);
    const auto* const reference = drawing.modelEntity<AcDbBlockReference>(0);
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->blockTableRecord(), drawing.block(L"WELL"));
    expectPoint(reference->position(), -2, 3, 0);
    EXPECT_EQ(reference->scaleFactors().sx, 2.0);
    EXPECT_EQ(reference->scaleFactors().sy, 3.0);
    EXPECT_EQ(reference->scaleFactors().sz, 4.0);
    EXPECT_NEAR(reference->rotation(), pi, 1e-15);
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    ASSERT_FALSE(attributes->done());
    const auto* const attribute = host_db::peek<AcDbAttribute>(attributes->objectId());
    ASSERT_NE(attribute, nullptr);
    EXPECT_STREQ(attribute->tagConst(), L"NO");
    EXPECT_STREQ(attribute->textStringConst(), L"W-1");
    EXPECT_EQ(attribute->flags(), 1);
    EXPECT_EQ(attribute->ownerId(), reference->objectId());
    const std::string_view bytes = drawing.source().file().bytes();
    EXPECT_TRUE(bytes.substr(reference->attributesEnd().begin).starts_with("0\nSEQEND\n5\n52\n"));
    const auto* const well = host_db::peek<AcDbBlockTableRecord>(drawing.block(L"WELL"));
    expectPoint(well->origin(), 0.5, 0, 0);
    ASSERT_EQ(well->entityIds().size(), 1U);
    const auto* const definition = host_db::peek<AcDbAttributeDefinition>(well->entityIds()[0]);
    ASSERT_NE(definition, nullptr);
    EXPECT_STREQ(definition->promptConst(), L"Number");
    EXPECT_EQ(definition->verticalMode(), AcDb::kTextTop);
}

TEST(LoadEntities, ReferenceArraysAndUnknownDefinitions) {
    TextFile file;
    file.group(0, "INSERT").group(8, "0").group(2, "NOWHERE").group(66, "1");
    file.group(70, "3").group(71, "2").group(44, 10.0).group(45, 20.0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const reference = drawing.modelEntity<AcDbBlockReference>(0);
    ASSERT_NE(reference, nullptr);
    EXPECT_TRUE(reference->blockTableRecord().isNull());
    EXPECT_EQ(reference->columns(), 3);
    EXPECT_EQ(reference->rows(), 2);
    EXPECT_EQ(reference->columnSpacing(), 10.0);
    EXPECT_EQ(reference->rowSpacing(), 20.0);
}

TEST(LoadEntities, OtherEntitiesKeepWhatAllEntitiesHave) {
    TextFile file;
    file.group(0, "HATCH").group(5, "77").group(8, "FILL").group(62, "256").group(60, "1");
    file.group(10, 1.0).group(1001, "KEY").group(1000, "value");
    file.group(0, "SOLID").group(8, "0");
    point(file, 10, 1, 2, 3);
    point(file, 11, 4, 5, 6);
    point(file, 210, 0, 0, -1);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const hatch = drawing.modelEntity<AcDbUnknownEntity>(0);
    ASSERT_NE(hatch, nullptr);
    EXPECT_STREQ(hatch->dxfTypeName(), L"HATCH");
    EXPECT_EQ(hatch->objectId().handle().value(), 0x77U);
    EXPECT_EQ(hatch->colorIndex(), 256);
    EXPECT_EQ(hatch->visibility(), AcDb::kInvisible);
    CString layer;
    hatch->layer(layer);
    EXPECT_STREQ(layer.GetString(), L"FILL");
    EXPECT_EQ(dxf_test::xdataLines(*hatch),
              (std::vector<std::wstring>{L"1001=KEY", L"1000=value"}));
    const auto* const solid = drawing.modelEntity<AcDbUnknownEntity>(1);
    ASSERT_NE(solid, nullptr);
    ASSERT_EQ(solid->outline().size(), 2U);
    expectPoint(solid->outline()[1], -4, 5, -6);
}

TEST(LoadEntities, BracketedGroupsAndEmbeddedObjectsAreNoFields) {
    TextFile file;
    file.group(0, "CIRCLE").group(5, "30").group(102, "{ACAD_REACTORS").group(330, "99");
    file.group(102, "}").group(102, "{MINE").group(40, 9.0).group(8, "WRONG").group(102, "}");
    file.group(100, "AcDbEntity").group(8, "RIGHT").group(100, "AcDbCircle").group(10, 1.0);
    file.group(20, 2.0).group(40, 3.0).group(101, "Embedded Object").group(50, 1.0);
    const LoadedDrawing drawing = drawingWith(file);
    const auto* const circle = drawing.modelEntity<AcDbCircle>(0);
    ASSERT_NE(circle, nullptr);
    EXPECT_EQ(circle->radius(), 3.0);
    CString layer;
    circle->layer(layer);
    EXPECT_STREQ(layer.GetString(), L"RIGHT");
}

} // namespace
