#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

/// A segment along the X axis from the origin, with the given nodes at its ends.
class SegmentLength : public DrawingTest {
protected:
    double lengthOf(double distance, const AcDbObjectId& start, const AcDbObjectId& end) {
        seg.endPoint.set(distance, 0, 0);
        seg.startEntity = start;
        seg.endEntity = end;
        return seg.GetLength();
    }

    AcDbObjectId well(const wchar_t* diameter = L"1.5") {
        return drawing.addWell({0, 0, 0}, {.diameter = diameter});
    }
    AcDbObjectId tank(const wchar_t* length) {
        return drawing.addTank({0, 0, 0}, {5, 5, 0}, {.length = length});
    }

    GravitySeg seg;
};

class SegmentBetweenRims : public SegmentLength {
protected:
    SegmentBetweenRims() {
        drawing.setLengthMode(0);
        drawing.setDrawScale(500.0);
    }
};

TEST_F(SegmentBetweenRims, WellsDeductTheirRadii) {
    EXPECT_DOUBLE_EQ(lengthOf(10, well(), well()), 7.0);
}

TEST_F(SegmentBetweenRims, TankDeductsHalfItsLengthThroughTheScale) {
    EXPECT_DOUBLE_EQ(lengthOf(10000, tank(L"3000"), AcDbObjectId()), 9997.0);
}

TEST_F(SegmentBetweenRims, WellAndTankBothDeduct) {
    EXPECT_DOUBLE_EQ(lengthOf(10000, well(), tank(L"3000")), 9995.5);
}

TEST_F(SegmentBetweenRims, NodesWithoutNamesDeductNothing) {
    EXPECT_DOUBLE_EQ(lengthOf(10, AcDbObjectId(), AcDbObjectId()), 10.0);
}

TEST_F(SegmentBetweenRims, CoincidingNodesGiveANegativeLength) {
    EXPECT_DOUBLE_EQ(lengthOf(0, well(), well()), -3.0);
}

TEST_F(SegmentBetweenRims, DistanceIsMeasuredInSpace) {
    seg.startPoint.set(0, 0, 0);
    seg.endPoint.set(3, 4, 12);
    EXPECT_DOUBLE_EQ(seg.GetLength(), 13.0);
}

class SegmentBetweenTankWalls : public SegmentLength {
protected:
    SegmentBetweenTankWalls() { drawing.setLengthMode(1); }
};

TEST_F(SegmentBetweenTankWalls, WellsDeductNothing) {
    drawing.setDrawScale(500.0);
    EXPECT_DOUBLE_EQ(lengthOf(10, well(), well()), 10.0);
}

TEST_F(SegmentBetweenTankWalls, TankDeductsHalfItsLengthAsItStandsAtAnyScale) {
    const AcDbObjectId start = tank(L"3000");
    for (const double scale : {500.0, 1000.0, 2000.0}) {
        drawing.setDrawScale(scale);
        EXPECT_DOUBLE_EQ(lengthOf(10000, start, AcDbObjectId()), 8500.0);
    }
}

TEST_F(SegmentBetweenTankWalls, TankAtTheEndDeductsAlike) {
    EXPECT_DOUBLE_EQ(lengthOf(10000, well(), tank(L"3000")), 8500.0);
}

TEST_F(SegmentBetweenTankWalls, BothTanksDeduct) {
    EXPECT_DOUBLE_EQ(lengthOf(10000, tank(L"3000"), tank(L"1000")), 8000.0);
}

TEST_F(SegmentBetweenTankWalls, TextOfTheStartTankDoesNotMakeTheEndATank) {
    const AcDbObjectId block = drawing.addBlock({0, 0, 0}, L"OTHER", {{L"长度", L"1000"}});
    EXPECT_DOUBLE_EQ(lengthOf(10000, tank(L"3000"), block), 8500.0);
}

TEST_F(SegmentBetweenTankWalls, EndTankWithoutLengthDeductsNothing) {
    EXPECT_DOUBLE_EQ(lengthOf(10000, tank(L"3000"), tank(nullptr)), 8500.0);
}

TEST_F(SegmentBetweenTankWalls, TankNameWithoutTextDeductsNothing) {
    const AcDbObjectId empty =
        drawing.addBlock({0, 0, 0}, L"OTHER", {{L"池体系统", L""}, {L"长度", L"1000"}});
    const AcDbObjectId bare = drawing.addBlock({0, 0, 0}, L"OTHER", {{L"长度", L"1000"}});
    drawing.setApplicationAlone(bare, L"池体系统");
    EXPECT_DOUBLE_EQ(lengthOf(10000, empty, bare), 10000.0);
    EXPECT_DOUBLE_EQ(lengthOf(10000, tank(L"3000"), bare), 8500.0);
}

TEST_F(SegmentBetweenTankWalls, EntityThatIsWellAndTankDeductsAsATank) {
    const AcDbObjectId both = drawing.addWell({0, 0, 0});
    drawing.setText(both, L"池体系统", kSewer);
    drawing.setText(both, L"长度", L"3000");
    EXPECT_DOUBLE_EQ(lengthOf(10000, both, AcDbObjectId()), 8500.0);
}

TEST_F(SegmentLength, AnyOtherSettingGivesZero) {
    for (const int mode : {2, 3, -1}) {
        drawing.setLengthMode(mode);
        seg.length = 77.0;
        EXPECT_EQ(lengthOf(10, well(), well()), 0.0);
        EXPECT_EQ(seg.length, 0.0);
    }
}

TEST_F(SegmentLength, ResultReplacesTheStoredLength) {
    for (const int mode : {0, 1}) {
        drawing.setLengthMode(mode);
        seg.length = 77.0;
        EXPECT_DOUBLE_EQ(lengthOf(10, AcDbObjectId(), AcDbObjectId()), 10.0);
        EXPECT_DOUBLE_EQ(seg.length, 10.0);
    }
}

} // namespace
} // namespace module_tests
