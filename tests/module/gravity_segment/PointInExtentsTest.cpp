#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

using tkvlt::PointInExtents;

/// At a draw scale of 4 the margin is 0.25, which every number here can hold exactly.
class PointInBox : public DrawingTest {
protected:
    PointInBox() { drawing.setDrawScale(4.0); }

    const AcDbExtents box{{10, 20, 30}, {12, 24, 36}};
};

TEST_F(PointInBox, PointInsideIsInside) {
    EXPECT_EQ(PointInExtents({11, 22, 33}, box, 0), 1);
}

TEST_F(PointInBox, BoundsWidenedByTheMarginBelongToIt) {
    EXPECT_EQ(PointInExtents({9.75, 22, 33}, box, 0), 1);
    EXPECT_EQ(PointInExtents({12.25, 22, 33}, box, 0), 1);
    EXPECT_EQ(PointInExtents({11, 19.75, 33}, box, 0), 1);
    EXPECT_EQ(PointInExtents({11, 24.25, 33}, box, 0), 1);
    EXPECT_EQ(PointInExtents({11, 22, 29.75}, box, 0), 1);
    EXPECT_EQ(PointInExtents({11, 22, 36.25}, box, 0), 1);
}

TEST_F(PointInBox, PointBeyondTheMarginIsOutside) {
    EXPECT_EQ(PointInExtents({9.7499999, 22, 33}, box, 0), 0);
    EXPECT_EQ(PointInExtents({12.2500001, 22, 33}, box, 0), 0);
    EXPECT_EQ(PointInExtents({11, 19.7499999, 33}, box, 0), 0);
    EXPECT_EQ(PointInExtents({11, 24.2500001, 33}, box, 0), 0);
    EXPECT_EQ(PointInExtents({11, 22, 29.7499999}, box, 0), 0);
    EXPECT_EQ(PointInExtents({11, 22, 36.2500001}, box, 0), 0);
}

TEST_F(PointInBox, HeightIsIgnoredOnRequestAlone) {
    EXPECT_EQ(PointInExtents({11, 22, 1000}, box, 1), 1);
    EXPECT_EQ(PointInExtents({11, 22, 1000}, box, 7), 1);
    EXPECT_EQ(PointInExtents({11, 22, 1000}, box, 0), 0);
}

TEST_F(PointInBox, IgnoringTheHeightStillTestsThePlan) {
    EXPECT_EQ(PointInExtents({9, 22, 33}, box, 1), 0);
    EXPECT_EQ(PointInExtents({11, 25, 33}, box, 1), 0);
}

TEST_F(PointInBox, MarginFollowsTheScale) {
    drawing.setDrawScale(1000.0);
    EXPECT_EQ(PointInExtents({12.0009, 22, 33}, box, 0), 1);
    EXPECT_EQ(PointInExtents({12.0011, 22, 33}, box, 0), 0);
}

TEST_F(PointInBox, NothingIsInsideEmptyExtents) {
    EXPECT_EQ(PointInExtents({0, 0, 0}, AcDbExtents(), 1), 0);
}

} // namespace
} // namespace module_tests
