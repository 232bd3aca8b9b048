#include "records/PlanBox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace module_tests {
namespace {

using tkvlt::PlanBox;

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

bool isEverywhere(const PlanBox& box) {
    return box.minX == -kInfinite && box.minY == -kInfinite && box.maxX == kInfinite &&
           box.maxY == kInfinite;
}

TEST(PlanBox, IncludesAnotherAndPassesOverWhatIsNoNumber) {
    PlanBox box{0, 0, 1, 1};
    box.Include({-2, 0.5, 0.5, 3});
    EXPECT_EQ(box.minX, -2.0);
    EXPECT_EQ(box.minY, 0.0);
    EXPECT_EQ(box.maxX, 1.0);
    EXPECT_EQ(box.maxY, 3.0);
    const PlanBox unknown{kNoNumber, kNoNumber, kNoNumber, kNoNumber};
    for (const bool unknownFirst : {true, false}) {
        PlanBox either = unknownFirst ? unknown : box;
        either.Include(unknownFirst ? box : unknown);
        EXPECT_EQ(either.minX, -2.0) << unknownFirst;
        EXPECT_EQ(either.minY, 0.0) << unknownFirst;
        EXPECT_EQ(either.maxX, 1.0) << unknownFirst;
        EXPECT_EQ(either.maxY, 3.0) << unknownFirst;
    }
}

TEST(PlanBox, AroundAPlaceHoldsWhatIsAsFarAsTheReach) {
    const AcGePoint3d place(500000.0, 4000000.0, 12.0);
    const PlanBox box = PlanBox::Around(place, 0.5);
    EXPECT_LE(box.minX, 499999.5);
    EXPECT_LE(box.minY, 3999999.5);
    EXPECT_GE(box.maxX, 500000.5);
    EXPECT_GE(box.maxY, 4000000.5);
    // By no more than rounding: a millionth of a unit at such coordinates.
    EXPECT_NEAR(box.minX, 499999.5, 1e-6);
    EXPECT_NEAR(box.maxY, 4000000.5, 1e-6);
}

TEST(PlanBox, AroundAPlaceIsThePlaceWidened) {
    for (const double reach : {0.0, 1e-9, 0.25, 1e7, -3.0, -0.0}) {
        const AcGePoint3d place(-12.75, 3e6, -1e9);
        const PlanBox around = PlanBox::Around(place, reach);
        const PlanBox widened = PlanBox::Of(place).Widened(reach);
        EXPECT_EQ(around.minX, widened.minX) << reach;
        EXPECT_EQ(around.minY, widened.minY) << reach;
        EXPECT_EQ(around.maxX, widened.maxX) << reach;
        EXPECT_EQ(around.maxY, widened.maxY) << reach;
    }
}

TEST(PlanBox, WithANegativeReachHoldsNothing) {
    const PlanBox box = PlanBox::Around({1.0, 2.0, 3.0}, -1.0);
    EXPECT_GT(box.minX, box.maxX);
    EXPECT_GT(box.minY, box.maxY);
}

// Beyond the distance that a search for the nearest starts with, everything counts as so far.
TEST(PlanBox, WithAReachBeyondTheStartOfASearchForTheNearestIsTheWholePlane) {
    EXPECT_TRUE(isEverywhere(PlanBox::Around({1.0, 2.0, 3.0}, 1e20)));
    EXPECT_FALSE(isEverywhere(PlanBox::Around({1.0, 2.0, 3.0}, 0.99e20)));
}

TEST(PlanBox, AroundAPlaceHoldsWhatIsTooCloseForADistance) {
    const AcGePoint3d place(0.0, 0.0, 0.0);
    const AcGePoint3d beside(1e-170, -1e-170, 0.0);
    ASSERT_EQ(place.distanceTo(beside), 0.0);
    EXPECT_TRUE(PlanBox::Around(place, 0.0).Overlaps(PlanBox::Of(beside)));
    EXPECT_TRUE(PlanBox::Of(place).Widened(0.0).Overlaps(PlanBox::Of(beside)));
}

TEST(PlanBox, AroundWhatIsNotFiniteIsTheWholePlane) {
    for (const double odd : {kNoNumber, kInfinite, -kInfinite}) {
        EXPECT_TRUE(isEverywhere(PlanBox::Around({odd, 0.0, 0.0}, 1.0))) << odd;
        EXPECT_TRUE(isEverywhere(PlanBox::Around({0.0, odd, 0.0}, 1.0))) << odd;
        EXPECT_TRUE(isEverywhere(PlanBox::Around({0.0, 0.0, odd}, 1.0))) << odd;
        EXPECT_TRUE(isEverywhere(PlanBox::Around({1.0, 2.0, 3.0}, odd))) << odd;
    }
    EXPECT_FALSE(isEverywhere(PlanBox::Around({1e300, -1e300, 1e300}, 1.0)));
}

} // namespace
} // namespace module_tests
