#include "UtilitiesTest.h"

#include "TwiceMetLine.h"
#include "utilities/ClassifyLinePair.h"

namespace module_tests {
namespace {

/// With the drawing scale 1 an end is near up to 10.0 by both measures.
class ClassifyLinePairTest : public UtilitiesTest {
protected:
    int classify(const AcDbLine& a, const AcDbLine& b) {
        auto* first = const_cast<AcDbLine*>(&a);
        auto* second = const_cast<AcDbLine*>(&b);
        return PelClassifyLinePair(first, second, points);
    }

    AcGePoint3dArray points;
    /// Along the x axis.
    const AcDbLine hundred{{0, 0, 0}, {100, 0, 0}};
};

TEST_F(ClassifyLinePairTest, LinesWithoutAMeetingPointAreApart) {
    EXPECT_EQ(classify(hundred, AcDbLine({0, 5, 0}, {100, 5, 0})), 0);
    // Extended they would meet at (300, 0), which lies on neither.
    EXPECT_EQ(classify(hundred, AcDbLine({300, 50, 0}, {300, 90, 0})), 0);
}

TEST_F(ClassifyLinePairTest, ShortLinesOnTopOfEachOtherAreApart) {
    // They cross, but all ends lie within 10 of all others.
    EXPECT_EQ(classify(AcDbLine({0, 0, 0}, {4, 0, 0}), AcDbLine({2, -2, 0}, {2, 2, 0})), 0);
}

TEST_F(ClassifyLinePairTest, PointsAreLeftAloneByTheFirstGateAndEmptiedBehindIt) {
    points.append(AcGePoint3d(7, 7, 7));
    classify(AcDbLine({0, 0, 0}, {4, 0, 0}), AcDbLine({2, -2, 0}, {2, 2, 0}));
    ASSERT_EQ(points.length(), 1);
    EXPECT_TRUE(samePoint(points[0], {7, 7, 7}));
    EXPECT_EQ(classify(hundred, AcDbLine({50, -50, 0}, {50, 50, 0})), 6);
    ASSERT_EQ(points.length(), 1);
    EXPECT_TRUE(samePoint(points[0], {50, 0, 0}));
}

TEST_F(ClassifyLinePairTest, OneEndApartIsEnoughToPassTheFirstGate) {
    // B's end is exactly 10 from A's start: not strictly within.
    EXPECT_EQ(classify(AcDbLine({0, 0, 0}, {1, 0, 0}), AcDbLine({0, 0, 0}, {0, 10, 0})), 1);
}

TEST_F(ClassifyLinePairTest, AnEndExactlyTenFromBothOthersIsApart) {
    // B's end at (0, 8) is 10 from (-6, 0) and from (6, 0), the other three pairs of ends are
    // nearer.
    EXPECT_EQ(classify(AcDbLine({-6, 0, 0}, {6, 0, 0}), AcDbLine({0, 0, 0}, {0, 8, 0})), 1);
    EXPECT_EQ(classify(AcDbLine({-6, 0, 0}, {6, 0, 0}), AcDbLine({0, 8, 0}, {0, 0, 0})), 1);
    EXPECT_EQ(classify(AcDbLine({-6, 0, 0}, {6, 0, 0}), AcDbLine({0, 0, 0}, {0, 7.9, 0})), 0);
}

TEST_F(ClassifyLinePairTest, LinesThatMeetNearAnEndOfEachMeetAtTheirEnds) {
    EXPECT_EQ(classify(hundred, AcDbLine({100, 0, 0}, {100, 90, 0})), 1);
    EXPECT_EQ(classify(hundred, AcDbLine({95, -5, 0}, {95, 90, 0})), 1);
}

TEST_F(ClassifyLinePairTest, EndOfOneOnTheInsideOfTheOther) {
    const AcDbLine across({91, -90, 0}, {91, 90, 0});
    // The meeting point (91, 0) is 9 from the end of `hundred` and 90 from both of `across`.
    EXPECT_EQ(classify(hundred, across), 5);
    EXPECT_EQ(classify(across, hundred), 4);
}

TEST_F(ClassifyLinePairTest, EndAtExactlyTenIsOnTheInside) {
    EXPECT_EQ(classify(hundred, AcDbLine({90, -90, 0}, {90, 90, 0})), 6);
}

TEST_F(ClassifyLinePairTest, LinesThatCrossInside) {
    EXPECT_EQ(classify(hundred, AcDbLine({50, -50, 0}, {50, 50, 0})), 6);
}

TEST_F(ClassifyLinePairTest, MoreThanOneMeetingPoint) {
    EXPECT_EQ(classify(TwiceMetLine({0, 0, 0}, {100, 0, 0}), hundred), 7);
}

TEST_F(ClassifyLinePairTest, LineThatStopsShortOfTheOther) {
    const AcDbLine above({50, 1, 0}, {50, 90, 0});
    EXPECT_EQ(classify(hundred, above), 2);
    EXPECT_TRUE(samePoint(points[0], {50, 0, 0}));
    EXPECT_EQ(classify(above, hundred), 3);
    EXPECT_TRUE(samePoint(points[0], {50, 0, 0}));
}

TEST_F(ClassifyLinePairTest, GapOfExactlyTheToleranceCounts) {
    EXPECT_EQ(classify(hundred, AcDbLine({50, 10, 0}, {50, 90, 0})), 2);
    EXPECT_EQ(classify(hundred, AcDbLine({50, 10.5, 0}, {50, 90, 0})), 0);
    EXPECT_EQ(classify(AcDbLine({50, 10.5, 0}, {50, 90, 0}), hundred), 0);
}

TEST_F(ClassifyLinePairTest, GapNearAnEndOfTheOtherIsNone) {
    // The place (10, 0) is 10 from A's start, which is not farther than the tolerance.
    EXPECT_EQ(classify(hundred, AcDbLine({10, 1, 0}, {10, 90, 0})), 0);
    EXPECT_EQ(classify(hundred, AcDbLine({10.5, 1, 0}, {10.5, 90, 0})), 2);
    EXPECT_EQ(classify(AcDbLine({10, 1, 0}, {10, 90, 0}), hundred), 0);
}

TEST_F(ClassifyLinePairTest, LinesThatTouchAtAFlatAngleNearAnEndOfEachMeetAtTheirEnds) {
    drawing.setDwgScale(0.01); // a gap would break the first line 5 from its start
    EXPECT_EQ(classify(AcDbLine({0, 0, 0}, {40, 0, 0}), AcDbLine({5, 0.9e-10, 0}, {105, 1, 0})), 1);
}

TEST_F(ClassifyLinePairTest, ScaleMovesTheToleranceOfGapsAlone) {
    drawing.setDwgScale(0.05); // the tolerance is 0.5
    EXPECT_EQ(classify(hundred, AcDbLine({50, 1, 0}, {50, 90, 0})), 0);
    EXPECT_EQ(classify(hundred, AcDbLine({50, 0.5, 0}, {50, 90, 0})), 2);
    EXPECT_EQ(classify(hundred, AcDbLine({91, -90, 0}, {91, 90, 0})), 5);
    // The first gate goes by the tolerance too: these are no longer on top of each other.
    EXPECT_EQ(classify(AcDbLine({0, 0, 0}, {4, 0, 0}), AcDbLine({2, -2, 0}, {2, 2, 0})), 1);
}

} // namespace
} // namespace module_tests
