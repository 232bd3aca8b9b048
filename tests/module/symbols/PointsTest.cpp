#include "module/utilities/UtilitiesTest.h"

#include "utilities/Points.h"

#include <cmath>

namespace module_tests {
namespace {

/// A window 800 wide and 400 high at (100, 50) that shows 20 units in height about (10, 5), so 40
/// in width: X from -10 to 30, Y from -5 to 15, and 0.05 of a unit to a pixel.
class PixelTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        acedGetAcadDwgView()->GetWindowRect(&before);
        acedGetAcadDwgView()->MoveWindow(100, 50, 800, 400);
        ASSERT_TRUE(host::setView({10, 5, 0}, 20));
    }
    void TearDown() override {
        acedGetAcadDwgView()->MoveWindow(&before);
        UtilitiesTest::TearDown();
    }

    /// The result, and the point in `point`.
    int ask(int x, int y) {
        CPoint pixel(x, y);
        return PelPixelPtToUcsPt(pixel, point);
    }

    CRect before;
    AcGePoint3d point{-1, -1, -1};
};

TEST_F(PixelTest, CornersOfTheViewAreThoseOfTheWindow) {
    AcGePoint3d lowerLeft;
    AcGePoint3d upperRight;
    EXPECT_EQ(XScjx(lowerLeft, upperRight), 1);
    EXPECT_TRUE(samePoint(lowerLeft, {-10, -5, 0}));
    EXPECT_TRUE(samePoint(upperRight, {30, 15, 0}));
}

TEST_F(PixelTest, YRunsUpwardsInTheDrawingAndDownwardsOnTheScreen) {
    EXPECT_EQ(ask(100, 50), 1); // the window's first pixel: upper left corner
    EXPECT_TRUE(samePoint(point, {-10, 15, 0}));
    EXPECT_EQ(ask(300, 150), 1); // 200 to the right, 300 above the bottom
    EXPECT_TRUE(samePoint(point, {0, 10, 0}));
    EXPECT_EQ(ask(899, 449), 1); // the last one: 799 to the right, 1 above the bottom
    EXPECT_TRUE(samePoint(point, {29.95, -4.95, 0}));
}

TEST_F(PixelTest, PixelOutsideTheViewIsNotInsideButStillGivesItsPoint) {
    EXPECT_EQ(ask(900, 449), 0); // right and bottom edges are outside
    EXPECT_TRUE(samePoint(point, {30, -4.95, 0}));
    EXPECT_EQ(ask(899, 450), 0);
    EXPECT_TRUE(samePoint(point, {29.95, -5, 0}));
    EXPECT_EQ(ask(99, 50), 0);
    EXPECT_TRUE(samePoint(point, {-10.05, 15, 0}));
    EXPECT_EQ(ask(-300, -150), 0); // 400 left of the window, 200 above its top
    EXPECT_TRUE(samePoint(point, {-30, 25, 0}));
}

TEST_F(PixelTest, HeightIsZeroWhateverItWas) {
    point.z = 7;
    ask(300, 150);
    EXPECT_EQ(point.z, 0.0);
}

TEST_F(PixelTest, PointIsInTheUserCoordinateSystem) {
    // The user's origin lies at (10, 5) and the user's X axis points up.
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({10, 5, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    // The view stays about the same place of the world, now the origin: 20 high and 40 wide.
    ask(500, 250);
    EXPECT_TRUE(samePoint(point, {0, 0, 0}));
    ask(100, 450);
    EXPECT_TRUE(samePoint(point, {-20, -10, 0}));
    // Four units along the user's X axis is four up in the world.
    ASSERT_TRUE(host::setView({4, 0, 0}, 20));
    ASSERT_EQ(acedSetCurrentUCS(AcGeMatrix3d::kIdentity), Acad::eOk);
    ask(500, 250);
    EXPECT_TRUE(samePoint(point, {10, 9, 0}));
}

TEST_F(PixelTest, ViewIsRefusedWhenItIsNone) {
    EXPECT_FALSE(host::setView({0, 0, 0}, 0.0));
    EXPECT_FALSE(host::setView({0, 0, 0}, -1.0));
    EXPECT_FALSE(host::setView({HUGE_VAL, 0, 0}, 1.0));
    ask(500, 250);
    EXPECT_TRUE(samePoint(point, {10, 5, 0}));
    drawing.close();
    EXPECT_FALSE(host::setView({0, 0, 0}, 1.0));
    AcGePoint3d corner{1, 2, 3};
    AcGePoint3d other{4, 5, 6};
    EXPECT_EQ(XScjx(corner, other), 0);
    EXPECT_TRUE(samePoint(corner, {1, 2, 3}));
}

class PointsTest : public ::testing::Test {
protected:
    static AcGePoint3d topLeft(AcGePoint3d a, AcGePoint3d b) { return PelTopLeftPoint(a, b); }
};

TEST_F(PointsTest, GreaterYIsTheTopLeftPoint) {
    EXPECT_TRUE(samePoint(topLeft({5, 2, 0}, {0, 1, 0}), {5, 2, 0}));
    EXPECT_TRUE(samePoint(topLeft({5, 1, 0}, {9, 2, 0}), {9, 2, 0}));
}

TEST_F(PointsTest, AtTheSameYTheLesserXIs) {
    EXPECT_TRUE(samePoint(topLeft({5, 2, 0}, {6, 2, 0}), {5, 2, 0}));
    EXPECT_TRUE(samePoint(topLeft({5, 2, 0}, {4, 2, 0}), {4, 2, 0}));
}

TEST_F(PointsTest, OfEqualPointsTheSecondIs) {
    EXPECT_EQ(topLeft({5, 2, 7}, {5, 2, 8}).z, 8.0); // the height tells them apart
}

TEST_F(PointsTest, YIsComparedWithoutSlack) {
    // 1e-12 is far below every tolerance of the geometry.
    EXPECT_EQ(topLeft({5, 2 + 1e-12, 0}, {0, 2, 0}).x, 5.0);
}

TEST_F(PointsTest, PolarPointLiesInTheDirectionWhateverTheVectorsLength) {
    // (3, 4) has length 5, so that 10 along it is (6, 8).
    EXPECT_TRUE(samePoint(PelGetPolarPoint({1, 1, 2}, {3, 4, 0}, 10), {7, 9, 2}));
    EXPECT_TRUE(samePoint(PelGetPolarPoint({1, 1, 2}, {300, 400, 0}, 10), {7, 9, 2}));
    EXPECT_TRUE(samePoint(PelGetPolarPoint({1, 1, 2}, {3, 4, 0}, -5), {-2, -3, 2}));
    EXPECT_TRUE(samePoint(PelGetPolarPoint({1, 1, 2}, {0, 0, -8}, 3), {1, 1, -1}));
}

} // namespace
} // namespace module_tests
