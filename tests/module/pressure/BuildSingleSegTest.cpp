// One segment of one pipe, without any search.

#include "pressure/BuildSingleSeg.h"
#include "module/pressure/PressureTest.h"

namespace module_tests {

using tkvlt::BuildSingleSeg;

namespace {

PipeTexts texts(const wchar_t* flow) {
    return {.diameter = L"150",
            .flow = flow,
            .slope = L"0.02",
            .startElevation = L"10",
            .endElevation = L"9",
            .material = L"PE"};
}

class BuildSingleSegTest : public PressureTest {
protected:
    PressureSeg single;
};

} // namespace

TEST_F(BuildSingleSegTest, TakesShapeAndTextsFromTheEntity) {
    const AcDbObjectId pipe = drawing.main({1, 2, 3}, {4, 6, 3}, texts(L"SE"));
    EXPECT_EQ(BuildSingleSeg(single, pipe), 1);
    EXPECT_EQ(idsOf(single.pipeIds), Ids{pipe});
    EXPECT_EQ(intsOf(single.orientationFlags), std::vector<int>{1});
    EXPECT_TRUE(samePoint(single.startPoint, {1, 2, 3}, 0));
    EXPECT_TRUE(samePoint(single.endPoint, {4, 6, 3}, 0));
    EXPECT_TRUE(samePoint(single.line.startPoint(), {1, 2, 3}, 0));
    EXPECT_TRUE(samePoint(single.line.endPoint(), {4, 6, 3}, 0));
    EXPECT_EQ(single.isArc, 0);
    EXPECT_EQ(single.diameter, 150);
    EXPECT_EQ(single.slope, 0.02);
    EXPECT_EQ(utf8(single.flowText), "SE");
    EXPECT_EQ(utf8(single.material), "PE");
    EXPECT_EQ(utf8(single.systemName), "给水");
    EXPECT_EQ(single.GetLength(), 5.0);
}

TEST_F(BuildSingleSegTest, HeightsFollowTheFlow) {
    BuildSingleSeg(single, drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"SE")));
    EXPECT_EQ(single.startElevation, 10.0);
    EXPECT_EQ(single.endElevation, 9.0);
}

TEST_F(BuildSingleSegTest, AnyOtherFlowTextSwapsTheHeights) {
    for (const wchar_t* flow : {L"ES", L"", L"se", L"SE ", static_cast<const wchar_t*>(nullptr)}) {
        PressureSeg seg;
        BuildSingleSeg(seg, drawing.main({0, 0, 0}, {10, 0, 0}, texts(flow)));
        EXPECT_EQ(seg.startElevation, 9.0);
        EXPECT_EQ(seg.endElevation, 10.0);
    }
}

/// With "ES" the start height belongs to the end point, while the begin point is the start point.
TEST_F(BuildSingleSegTest, DirectionIsNotTakenFromTheFlow) {
    BuildSingleSeg(single, drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"ES")));
    EXPECT_EQ(single.reversed, 0);
    EXPECT_TRUE(samePoint(single.GetBeginPoint(), {0, 0, 0}));
    EXPECT_EQ(single.startElevation, 9.0);
}

TEST_F(BuildSingleSegTest, ReversedAndThePlaceInATreeStay) {
    single.reversed = 5;
    single.parent = 3;
    single.children.Add(8);
    BuildSingleSeg(single, drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"SE")));
    EXPECT_EQ(single.reversed, 5);
    EXPECT_EQ(single.parent, 3);
    EXPECT_EQ(intsOf(single.children), std::vector<int>{8});
}

TEST_F(BuildSingleSegTest, NeighboursDoNotMatter) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {9.5, 0, 0}, texts(L"SE"));
    drawing.main({5, 0, 0}, {5, 10, 0});
    drawing.well({10, 0, 0});
    drawing.meter({3, 0, 0});
    drawing.setLengthMode(1);
    BuildSingleSeg(single, pipe);
    EXPECT_TRUE(samePoint(single.endPoint, {9.5, 0, 0}));
    EXPECT_EQ(single.meterIds.length(), 0);
    EXPECT_EQ(intsOf(single.orientationFlags), std::vector<int>{1});
}

TEST_F(BuildSingleSegTest, SystemIsTheEntitysOwn) {
    BuildSingleSeg(single, drawing.addPipe({0, 0, 0}, {10, 0, 0}, {.system = kStorm}));
    EXPECT_EQ(utf8(single.systemName), "雨水");
}

TEST_F(BuildSingleSegTest, UsedTwiceItHasTwoIdsAndTheSecondsValues) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"SE"));
    const AcDbObjectId second = drawing.arc({20, 0, 0}, {30, 0, 0}, 1.0, {.diameter = L"80"});
    BuildSingleSeg(single, first);
    BuildSingleSeg(single, second);
    EXPECT_EQ(idsOf(single.pipeIds), (Ids{first, second}));
    EXPECT_EQ(intsOf(single.orientationFlags), (std::vector<int>{1, 1}));
    EXPECT_TRUE(samePoint(single.startPoint, {20, 0, 0}));
    EXPECT_EQ(single.isArc, 1);
    EXPECT_EQ(single.diameter, 80);
    EXPECT_EQ(single.slope, 0.0);
    EXPECT_EQ(single.startElevation, 0.0);
    EXPECT_EQ(single.endElevation, 0.0);
    EXPECT_EQ(utf8(single.material), "PE") << "a missing text leaves what was there";
    EXPECT_EQ(utf8(single.flowText), "SE");
}

TEST_F(BuildSingleSegTest, EntityThatIsNoCurveGivesZeroValues) {
    const AcDbObjectId well = drawing.addBlock(
        {5, 5, 0}, L"VLT_WELL_01",
        {{L"管道系统", kSupply}, {L"管径", L"150"}, {L"起点标高", L"10"}, {L"管材", L"PE"}});
    EXPECT_EQ(BuildSingleSeg(single, well), 1);
    EXPECT_EQ(idsOf(single.pipeIds), Ids{well});
    EXPECT_EQ(intsOf(single.orientationFlags), std::vector<int>{1});
    EXPECT_TRUE(samePoint(single.startPoint, {0, 0, 0}, 0));
    EXPECT_TRUE(samePoint(single.endPoint, {0, 0, 0}, 0));
    EXPECT_EQ(single.diameter, 0);
    EXPECT_EQ(single.slope, 0.0);
    EXPECT_EQ(single.startElevation, 0.0);
    EXPECT_EQ(single.endElevation, 0.0);
    EXPECT_TRUE(single.flowText.IsEmpty());
    EXPECT_TRUE(single.material.IsEmpty());
    EXPECT_TRUE(single.systemName.IsEmpty());
}

TEST_F(BuildSingleSegTest, FailedOpenLeavesTheTextsThatWereThere) {
    single.flowText = L"SE";
    single.material = L"PVC";
    single.systemName = L"other";
    single.diameter = 99;
    EXPECT_EQ(BuildSingleSeg(single, {}), 1);
    EXPECT_EQ(single.pipeIds.length(), 1);
    EXPECT_EQ(utf8(single.flowText), "SE");
    EXPECT_EQ(utf8(single.material), "PVC");
    EXPECT_EQ(utf8(single.systemName), "other");
    EXPECT_EQ(single.diameter, 0);
}

TEST_F(BuildSingleSegTest, FittingsAreInsertedAsInAnyOther) {
    BuildSingleSeg(single, drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"ES")));
    const Ids ids = {drawing.meter({6, 0, 0}), drawing.valve({7, 0, 0}), drawing.well({8, 0, 0})};
    single.InsertMeterWell({6, 0, 0}, ids[0]);
    single.InsertMeterWell({2, 0, 0}, {});
    single.InsertValveWell({7, 0, 0}, ids[1]);
    single.InsertValveWell({3, 0, 0}, {});
    single.InsertOutputPoint({8, 0, 0}, ids[2], 1.5);
    single.InsertOutputPoint({4, 0, 0}, {}, 2.5);
    // From (0, 0), the begin point whatever the flow.
    EXPECT_EQ(xOf(single.meterPoints), (std::vector<double>{2, 6}));
    EXPECT_EQ(idsOf(single.meterIds), (Ids{AcDbObjectId(), ids[0]}));
    EXPECT_EQ(xOf(single.valvePoints), (std::vector<double>{3, 7}));
    EXPECT_EQ(idsOf(single.valveIds), (Ids{AcDbObjectId(), ids[1]}));
    EXPECT_EQ(xOf(single.outputPoints), (std::vector<double>{4, 8}));
    EXPECT_EQ((Ids{single.outputIds[0], single.outputIds[1]}), (Ids{AcDbObjectId(), ids[2]}));
    EXPECT_EQ(single.outputValues[0], 2.5);
    EXPECT_EQ(single.outputValues[1], 1.5);
}

TEST_F(BuildSingleSegTest, WellAllowanceIsThatOfTheTwoWells) {
    BuildSingleSeg(single, drawing.main({0, 0, 0}, {10, 0, 0}, texts(L"SE")));
    const AcDbObjectId one = drawing.well({0, 0, 0}, L"1.0");
    const AcDbObjectId two = drawing.well({10, 0, 0}, L"2.0");
    EXPECT_EQ(wellLength(single, one, two), 1500.0);
    EXPECT_EQ(wellLength(single, two, {}), 2000.0);
    EXPECT_EQ(single.GetLength(), 10.0);
}

TEST_F(BuildSingleSegTest, ArcIsMeasuredAndLabelledAsAnyOther) {
    BuildSingleSeg(single, drawing.arc({0, 0, 0}, {10, 0, 0}, 1.0));
    EXPECT_NEAR(single.GetLength(), 5.0 * kPi, 1e-9);
    EXPECT_TRUE(samePoint(single.GetAnnoatePoint(), {5, -5, 0}));
    EXPECT_NE(single.PtOnSeg({5, -5, 0}), 0);
}

} // namespace module_tests
