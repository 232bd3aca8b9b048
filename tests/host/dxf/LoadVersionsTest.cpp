#include "LoadedDrawing.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbLine.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbSpline.h"
#include "database/AcDbText.h"
#include "database/AcDbUnknownEntity.h"
#include "database/AcDbXrecord.h"
#include "database/XdataText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <numbers>
#include <unistd.h>

using dxf_test::LoadedDrawing;
using dxf_test::xdataLines;

namespace {

using VersionAndForm = std::tuple<std::string, std::string>;

/// The drawing of that version and form, written by another program as make_cases.py says; the
/// values expected here are those of the script.
LoadedDrawing writtenByAnother(const std::string& version, const std::string& form) {
    const std::string path = testing::TempDir() + "dxf_case_" + std::to_string(::getpid()) + "_" +
                             version + "_" + form + ".dxf";
    const std::string command = "/usr/bin/python3 '" TKVLT_TESTS_DIR "/host/dxf/make_cases.py' '" +
                                path + "' " + version + " " + form;
    EXPECT_EQ(std::system(command.c_str()), 0)
        << "needs the system's python3 with the package python3-ezdxf";
    LoadedDrawing drawing = LoadedDrawing::fromFile(path);
    std::filesystem::remove(path);
    return drawing;
}

void expectPoint(const AcGePoint3d& point, double x, double y, double z) {
    EXPECT_NEAR(point.x, x, 1e-12);
    EXPECT_NEAR(point.y, y, 1e-12);
    EXPECT_NEAR(point.z, z, 1e-12);
}

std::wstring layerOf(const AcDbEntity& entity) {
    CString name;
    entity.layer(name);
    return name.GetString();
}

void checkLineWithLayerColourAndExtendedData(const LoadedDrawing& drawing) {
    const auto* const line = drawing.modelEntity<AcDbLine>(0);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->startPoint().x, 1.5);
    EXPECT_EQ(line->startPoint().y, -2.25);
    EXPECT_EQ(line->startPoint().z, 0.125);
    EXPECT_EQ(line->endPoint().x, 1e7);
    EXPECT_EQ(line->colorIndex(), 5);
    EXPECT_EQ(layerOf(*line), L"\x6C61\x6C34\x7BA1");
    EXPECT_EQ(host_db::peek<AcDbLayerTableRecord>(line->layerId())->colorIndex(), 3);
    EXPECT_EQ(xdataLines(*line),
              (std::vector<std::wstring>{L"1001=\x7BA1\x9053\x7CFB\x7EDF", L"1000=\x6C61\x6C34",
                                         L"1070=7", L"1040=0.25", L"1001=PLAIN", L"1000=plain text",
                                         L"1071=100000"}));
    CString text;
    bool hasApp = false;
    EXPECT_TRUE(host_db::firstXdataString(*line, L"\x7BA1\x9053\x7CFB\x7EDF", text, hasApp));
    EXPECT_STREQ(text, L"\x6C61\x6C34");
}

void checkCurvesOfEveryVersion(const LoadedDrawing& drawing) {
    const auto* const arc = drawing.modelEntity<AcDbArc>(1);
    ASSERT_NE(arc, nullptr);
    expectPoint(arc->center(), 3, 4, 0);
    EXPECT_EQ(arc->radius(), 2.5);
    EXPECT_NEAR(arc->startAngle(), std::numbers::pi / 6, 1e-12);
    EXPECT_NEAR(arc->endAngle(), std::numbers::pi * 2 / 3, 1e-12);
    const auto* const circle = drawing.modelEntity<AcDbCircle>(2);
    ASSERT_NE(circle, nullptr);
    expectPoint(circle->center(), -5, 6, -7);
    const auto* const heavy = drawing.modelEntity<AcDb2dPolyline>(4);
    ASSERT_NE(heavy, nullptr);
    EXPECT_TRUE(heavy->isClosed());
    ASSERT_EQ(heavy->vertices().size(), 2U);
    EXPECT_EQ(heavy->vertices()[0].bulge, 1.0);
    EXPECT_EQ(heavy->vertices()[1].point.x, 4.0);
    const auto* const spatial = drawing.modelEntity<AcDb3dPolyline>(5);
    ASSERT_NE(spatial, nullptr);
    ASSERT_EQ(spatial->vertices().size(), 3U);
    expectPoint(spatial->vertices()[2].point, 4, 5, 6);
}

void checkReferenceAttributeAndText(const LoadedDrawing& drawing) {
    const auto* const reference = drawing.modelEntity<AcDbBlockReference>(3);
    ASSERT_NE(reference, nullptr);
    expectPoint(reference->position(), 10, 20, 0);
    EXPECT_EQ(reference->scaleFactors().sx, 2.0);
    EXPECT_EQ(reference->scaleFactors().sy, 3.0);
    EXPECT_NEAR(reference->rotation(), std::numbers::pi / 2, 1e-12);
    const auto* const well = host_db::peek<AcDbBlockTableRecord>(reference->blockTableRecord());
    ASSERT_NE(well, nullptr);
    EXPECT_STREQ(well->name(), L"\x68C0\x67E5\x4E95");
    expectPoint(well->origin(), 1, 2, 0);
    EXPECT_EQ(well->entityIds().size(), 2U);
    EXPECT_EQ(xdataLines(*reference),
              (std::vector<std::wstring>{L"1001=\x7BA1\x4E95\x7F16\x53F7", L"1000=W1"}));
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    ASSERT_FALSE(attributes->done());
    const auto* const attribute = host_db::peek<AcDbAttribute>(attributes->objectId());
    ASSERT_NE(attribute, nullptr);
    EXPECT_STREQ(attribute->textStringConst(), L"\x4E95-1");
    const auto* const text = drawing.modelEntity<AcDbText>(6);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->textStringConst(), L"\x6807\x9AD8 12.5");
    EXPECT_NEAR(text->rotation(), std::numbers::pi / 4, 1e-12);
    expectPoint(text->position(), 7, 8, 0);
}

void checkWhatCameWithLaterVersions(const LoadedDrawing& drawing, bool r12) {
    if (r12) {
        EXPECT_EQ(drawing.modelSpace().size(), 7U);
        return;
    }
    ASSERT_EQ(drawing.modelSpace().size(), 11U);
    const auto* const light = drawing.modelEntity<AcDbPolyline>(7);
    ASSERT_NE(light, nullptr);
    EXPECT_EQ(light->numVerts(), 3U);
    EXPECT_TRUE(light->isClosed());
    double bulge = 0.0;
    light->getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, 0.5);
    ASSERT_NE(drawing.modelEntity<AcDbEllipse>(8), nullptr);
    const auto* const spline = drawing.modelEntity<AcDbSpline>(9);
    ASSERT_NE(spline, nullptr);
    AcGePoint3d end;
    ASSERT_EQ(spline->getEndPoint(end), Acad::eOk);
    expectPoint(end, 3, 1, 0);
    ASSERT_NE(drawing.modelEntity<AcDbUnknownEntity>(10), nullptr);
    EXPECT_STREQ(drawing.modelEntity<AcDbUnknownEntity>(10)->dxfTypeName(), L"MTEXT");
    AcDbObjectId id;
    const auto* const root =
        host_db::peek<AcDbDictionary>(drawing.database().namedObjectsDictionaryId());
    ASSERT_EQ(root->getAt(L"TKVLT_DRAWING_SETTINGS", id), Acad::eOk);
    ASSERT_EQ(host_db::peek<AcDbDictionary>(id)->getAt(L"DrawScale", id), Acad::eOk);
    const auto* const record = host_db::peek<AcDbXrecord>(id);
    ASSERT_NE(record, nullptr);
    ASSERT_EQ(record->items().size(), 1U);
    EXPECT_EQ(record->items()[0].type, 8);
    EXPECT_STREQ(std::get<CString>(record->items()[0].value), L"500");
}

std::ptrdiff_t pointsIn(const LoadedDrawing& drawing, AcDbObjectId space) {
    const auto ids = drawing.entitiesOf(space);
    return std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) {
        return std::wstring(host_db::peekObject(id)->dxfTypeName()) == L"POINT";
    });
}

void checkLayoutsHoldTheirEntities(const LoadedDrawing& drawing, bool r12) {
    const auto& spaces = drawing.database().spaceIds();
    ASSERT_EQ(spaces.size(), r12 ? 2U : 3U);
    EXPECT_EQ(pointsIn(drawing, spaces[0]), 0);
    for (std::size_t i = 1; i < spaces.size(); ++i) {
        EXPECT_EQ(pointsIn(drawing, spaces[i]), 1) << "layout " << i;
    }
}

class LoadVersions : public testing::TestWithParam<VersionAndForm> {};

TEST_P(LoadVersions, ReadsWhatAnotherProgramWrote) {
    const auto& [version, form] = GetParam();
    const LoadedDrawing drawing = writtenByAnother(version, form);
    const bool r12 = version == "R12";
    checkLineWithLayerColourAndExtendedData(drawing);
    checkCurvesOfEveryVersion(drawing);
    checkReferenceAttributeAndText(drawing);
    checkWhatCameWithLaterVersions(drawing, r12);
    checkLayoutsHoldTheirEntities(drawing, r12);
}

INSTANTIATE_TEST_SUITE_P(AllVersions, LoadVersions,
                         testing::Combine(testing::Values("R12", "R2000", "R2004", "R2007", "R2010",
                                                          "R2013", "R2018"),
                                          testing::Values("text", "binary")),
                         [](const auto& instance) {
                             return std::get<0>(instance.param) + "_" + std::get<1>(instance.param);
                         });

} // namespace
