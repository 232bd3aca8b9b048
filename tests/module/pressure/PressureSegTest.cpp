// The operations of one segment.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

namespace {

class PressureSegTest : public PressureTest {
protected:
    using PressureTest::wellLength;
    static double wellLength(const AcDbObjectId& first, const AcDbObjectId& second) {
        PressureSeg seg;
        return wellLength(seg, first, second);
    }

    /// From (0, 0) to (10, 0), begin point (0, 0).
    static void makeStraight(PressureSeg& seg) {
        seg.startPoint = {0, 0, 0};
        seg.endPoint = {10, 0, 0};
        seg.line.set(seg.startPoint, seg.endPoint);
    }

    /// An arc from (0, 0) to (10, 0); the bulge 1 turns left over (5, -5), -1 right over (5, 5).
    static void makeArc(PressureSeg& seg, double bulge) {
        makeStraight(seg);
        seg.isArc = 1;
        seg.arc = AcGeCircArc3d::fromBulge(seg.startPoint, seg.endPoint, bulge, {0, 0, 1});
    }
};

} // namespace

TEST_F(PressureSegTest, SearchPointIsTheEndAndBeginPointTheStart) {
    PressureSeg seg;
    makeStraight(seg);
    EXPECT_TRUE(samePoint(seg.GetSearchPoint(), {10, 0, 0}, 0));
    EXPECT_TRUE(samePoint(seg.GetBeginPoint(), {0, 0, 0}, 0));
}

TEST_F(PressureSegTest, AnyNonzeroReversedChangesTheEnds) {
    PressureSeg seg;
    makeStraight(seg);
    for (const int reversed : {1, 2, -1, 1000}) {
        seg.reversed = reversed;
        EXPECT_TRUE(samePoint(seg.GetSearchPoint(), {0, 0, 0}, 0)) << reversed;
        EXPECT_TRUE(samePoint(seg.GetBeginPoint(), {10, 0, 0}, 0)) << reversed;
    }
}

TEST_F(PressureSegTest, MetersStandByDistanceFromTheBeginPoint) {
    PressureSeg seg;
    makeStraight(seg);
    const Ids ids = {drawing.meter({5, 0, 0}), drawing.meter({2, 0, 0}), drawing.meter({9, 0, 0}),
                     drawing.meter({7, 0, 0})};
    seg.InsertMeterWell({5, 0, 0}, ids[0]);
    seg.InsertMeterWell({2, 0, 0}, ids[1]); // in front
    seg.InsertMeterWell({9, 0, 0}, ids[2]); // farther than all: at the end
    seg.InsertMeterWell({7, 0, 0}, ids[3]); // between
    EXPECT_EQ(xOf(seg.meterPoints), (std::vector<double>{2, 5, 7, 9}));
    EXPECT_EQ(idsOf(seg.meterIds), (Ids{ids[1], ids[0], ids[3], ids[2]}));
}

TEST_F(PressureSegTest, AtTheBeginPointTheNewMeterGoesBehindTheOneAtDistanceZero) {
    PressureSeg seg;
    makeStraight(seg);
    const AcDbObjectId first = drawing.meter({0, 0, 0});
    const AcDbObjectId second = drawing.meter({0, 0, 0});
    const AcDbObjectId far = drawing.meter({3, 0, 0});
    seg.InsertMeterWell({3, 0, 0}, far);
    seg.InsertMeterWell({0, 0, 0}, first);
    seg.InsertMeterWell({0, 0, 0}, second);
    EXPECT_EQ(idsOf(seg.meterIds), (Ids{first, second, far}));
}

TEST_F(PressureSegTest, BehindTheLastPointAnIdGoesToTheEndOfItsListHoweverShort) {
    PressureSeg seg;
    makeStraight(seg);
    seg.meterPoints.Add({2, 0, 0});
    seg.valvePoints.Add({2, 0, 0});
    const AcDbObjectId meter = drawing.meter({5, 0, 0});
    const AcDbObjectId valve = drawing.valve({5, 0, 0});
    seg.InsertMeterWell({5, 0, 0}, meter);
    seg.InsertValveWell({5, 0, 0}, valve);
    EXPECT_EQ(xOf(seg.meterPoints), (std::vector<double>{2, 5}));
    EXPECT_EQ(idsOf(seg.meterIds), Ids{meter});
    EXPECT_EQ(xOf(seg.valvePoints), (std::vector<double>{2, 5}));
    EXPECT_EQ(idsOf(seg.valveIds), Ids{valve});
}

TEST_F(PressureSegTest, ValvesAtOneDistanceKeepTheOrderOfInsertion) {
    PressureSeg seg;
    makeStraight(seg);
    const AcDbObjectId left = drawing.valve({3, 4, 0});
    const AcDbObjectId right = drawing.valve({3, -4, 0});
    const AcDbObjectId onIt = drawing.valve({5, 0, 0});
    seg.InsertValveWell({3, 4, 0}, left);
    seg.InsertValveWell({3, -4, 0}, right);
    seg.InsertValveWell({5, 0, 0}, onIt);
    EXPECT_EQ(idsOf(seg.valveIds), (Ids{left, right, onIt}));
    EXPECT_TRUE(samePoint(seg.valvePoints.GetAt(1), {3, -4, 0}, 0));
}

TEST_F(PressureSegTest, MetersAndValvesDoNotTouchEachOthersLists) {
    PressureSeg seg;
    makeStraight(seg);
    const AcDbObjectId both = drawing.meter({4, 0, 0});
    seg.InsertMeterWell({4, 0, 0}, both);
    EXPECT_EQ(seg.valvePoints.GetSize(), 0);
    EXPECT_EQ(seg.valveIds.length(), 0);
    seg.InsertValveWell({6, 0, 0}, both);
    EXPECT_EQ(xOf(seg.meterPoints), std::vector<double>{4});
    EXPECT_EQ(xOf(seg.valvePoints), std::vector<double>{6});
    EXPECT_EQ(idsOf(seg.meterIds), idsOf(seg.valveIds));
}

TEST_F(PressureSegTest, OfAReversedSegmentTheOrderIsFromItsEnd) {
    PressureSeg seg;
    makeStraight(seg);
    seg.reversed = 1;
    seg.InsertMeterWell({2, 0, 0}, {});
    seg.InsertMeterWell({8, 0, 0}, {});
    EXPECT_EQ(xOf(seg.meterPoints), (std::vector<double>{8, 2}));
}

/// Three quarters of the circle about (0, 0) with radius 10, from (10, 0) turning left to (0, -10):
/// (-10, 0) lies earlier on it, but farther off in a straight line.
TEST_F(PressureSegTest, OnAnArcTooTheOrderIsByStraightDistance) {
    PressureSeg seg;
    seg.isArc = 1;
    seg.startPoint = {10, 0, 0};
    seg.endPoint = {0, -10, 0};
    seg.arc.set(seg.startPoint, {-10, 0, 0}, seg.endPoint);
    seg.InsertValveWell({-10, 0, 0}, {});
    seg.InsertValveWell({0, -10, 0}, {});
    EXPECT_EQ(xOf(seg.valvePoints), (std::vector<double>{0, -10}));
}

TEST_F(PressureSegTest, OneIndexNamesOneOutletInAllThreeLists) {
    PressureSeg seg;
    makeStraight(seg);
    const Ids ids = {drawing.well({6, 0, 0}), drawing.well({1, 0, 0}), drawing.well({6, 0, 0})};
    seg.InsertOutputPoint({6, 0, 0}, ids[0], 60.5);
    seg.InsertOutputPoint({1, 0, 0}, ids[1], 10.25);
    seg.InsertOutputPoint({6, 0, 0}, ids[2], 61.5);
    EXPECT_EQ(xOf(seg.outputPoints), (std::vector<double>{1, 6, 6}));
    ASSERT_EQ(seg.outputIds.GetSize(), 3);
    ASSERT_EQ(seg.outputValues.GetSize(), 3);
    EXPECT_EQ((Ids{seg.outputIds[0], seg.outputIds[1], seg.outputIds[2]}),
              (Ids{ids[1], ids[0], ids[2]}));
    EXPECT_EQ(seg.outputValues[0], 10.25);
    EXPECT_EQ(seg.outputValues[1], 60.5);
    EXPECT_EQ(seg.outputValues[2], 61.5);
}

TEST_F(PressureSegTest, PointOnAStraightSegmentMayMissItByTenMillimetres) {
    PressureSeg seg;
    makeStraight(seg);
    EXPECT_NE(seg.PtOnSeg({5, 0.0099, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({5, 0.0101, 0}), 0);
    drawing.setDrawScale(500.0); // ten millimetres are 0.02 units now
    EXPECT_NE(seg.PtOnSeg({5, 0.0199, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({5, 0.0201, 0}), 0);
}

TEST_F(PressureSegTest, PointIsLookedForOnTheLineAndNotBetweenTheEnds) {
    PressureSeg seg;
    makeStraight(seg);
    seg.endPoint = {0, 10, 0};
    EXPECT_NE(seg.PtOnSeg({5, 0, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({0, 5, 0}), 0);
}

TEST_F(PressureSegTest, PointOnAnArcIsNotOnItsChord) {
    PressureSeg seg;
    makeArc(seg, 1.0);
    EXPECT_NE(seg.PtOnSeg({5, -5.0099, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({5, -5.0101, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({5, 0, 0}), 0);
    EXPECT_EQ(seg.PtOnSeg({5, 5, 0}), 0) << "the other half of the circle";
}

TEST_F(PressureSegTest, LengthOfAStraightSegmentIsThatOfItsEnds) {
    PressureSeg seg;
    makeStraight(seg);
    EXPECT_EQ(seg.GetLength(), 10.0);
    seg.endPoint = {3, 4, 0};
    EXPECT_EQ(seg.GetLength(), 5.0) << "the line still is 10 long";
    EXPECT_TRUE(samePoint(seg.line.endPoint(), {10, 0, 0}, 0));
}

TEST_F(PressureSegTest, LengthOfAnArcIsThatOfItsCurve) {
    PressureSeg seg;
    makeArc(seg, 1.0);
    seg.endPoint = {100, 100, 0};
    EXPECT_NEAR(seg.GetLength(), 5.0 * kPi, 1e-12);
}

TEST_F(PressureSegTest, LabelOfAStraightSegmentIsInTheMiddleOfItsEnds) {
    PressureSeg seg;
    makeStraight(seg);
    seg.endPoint = {2, 6, 8};
    EXPECT_TRUE(samePoint(seg.GetAnnoatePoint(), {1, 3, 4}));
}

TEST_F(PressureSegTest, LabelOfAnArcIsHalfWayAlongIt) {
    PressureSeg left;
    makeArc(left, 1.0);
    EXPECT_TRUE(samePoint(left.GetAnnoatePoint(), {5, -5, 0}));
    PressureSeg right;
    makeArc(right, -1.0);
    EXPECT_TRUE(samePoint(right.GetAnnoatePoint(), {5, 5, 0}));
}

/// No distance along an arc without a size can be measured.
TEST_F(PressureSegTest, LabelOfAnArcThatCannotBeMeasuredIsInTheMiddleOfTheChord) {
    PressureSeg seg;
    makeArc(seg, 1.0);
    seg.arc.set({5, 0, 0}, {0, 0, 1}, std::nan(""));
    EXPECT_TRUE(samePoint(seg.GetAnnoatePoint(), {5, 0, 0}));
}

TEST_F(PressureSegTest, LabelOfAStraightSegmentRunsAlongItsLine) {
    PressureSeg seg;
    makeStraight(seg);
    seg.line.set(AcGePoint3d(7, 0, 0), AcGePoint3d(4, 4, 0));
    EXPECT_TRUE(sameVector(seg.GetAnnnotateVector(), {-0.6, 0.8, 0}));
    seg.reversed = 1;
    EXPECT_TRUE(sameVector(seg.GetAnnnotateVector(), {-0.6, 0.8, 0})) << "whatever is the begin";
}

/// The arm from the centre (5, 0) to the label is turned left by a quarter.
TEST_F(PressureSegTest, LabelOfAnArcRunsAlongTheTangent) {
    PressureSeg left;
    makeArc(left, 1.0);
    EXPECT_TRUE(sameVector(left.GetAnnnotateVector(), {1, 0, 0}));
    PressureSeg right;
    makeArc(right, -1.0);
    EXPECT_TRUE(sameVector(right.GetAnnnotateVector(), {-1, 0, 0}));
}

TEST_F(PressureSegTest, WellAllowanceIsHalfOfBothDiameters) {
    const AcDbObjectId one = drawing.well({0, 0, 0}, L"1.0");
    const AcDbObjectId two = drawing.well({9, 0, 0}, L"2.0");
    EXPECT_EQ(wellLength(one, two), 1500.0);
    EXPECT_EQ(wellLength(two, one), 1500.0);
}

TEST_F(PressureSegTest, WellAllowanceWithoutAFirstWellIsNothing) {
    EXPECT_EQ(wellLength({}, {}), 0.0);
    EXPECT_EQ(wellLength({}, drawing.well({9, 0, 0}, L"2.0")), 0.0);
}

TEST_F(PressureSegTest, WellAllowanceWithoutASecondWellCountsTheFirstTwice) {
    EXPECT_EQ(wellLength(drawing.well({0, 0, 0}, L"1.0"), {}), 1000.0);
}

TEST_F(PressureSegTest, WellWithoutADiameterCountsAsNothing) {
    const AcDbObjectId one = drawing.well({0, 0, 0}, L"1.0");
    const AcDbObjectId none = drawing.well({9, 0, 0}, nullptr);
    EXPECT_EQ(wellLength(one, none), 500.0);
    EXPECT_EQ(wellLength(none, one), 500.0);
    EXPECT_EQ(wellLength(none, {}), 0.0);
}

TEST_F(PressureSegTest, WellDiameterIsTheNumericPrefix) {
    const AcDbObjectId one = drawing.well({0, 0, 0}, L"1.5m");
    const AcDbObjectId none = drawing.well({9, 0, 0}, L"wide");
    EXPECT_EQ(wellLength(one, none), 750.0);
}

TEST_F(PressureSegTest, WellAllowanceLeavesTheSegmentAlone) {
    PressureSeg seg;
    makeStraight(seg);
    const AcDbObjectId one = drawing.well({0, 0, 0}, L"1.0");
    wellLength(seg, one, one);
    EXPECT_EQ(seg.GetLength(), 10.0);
    EXPECT_EQ(seg.pipeIds.length() + seg.meterIds.length() + seg.valveIds.length(), 0);
}

} // namespace module_tests
