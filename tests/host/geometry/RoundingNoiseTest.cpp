#include "geometry/RoundingNoise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using host_geometry::agreeingAngle;
using host_geometry::meetingDistance;
using host_geometry::roundingNoise;

TEST(Tolerance, StartsAtTenToTheMinusTen) {
    EXPECT_EQ(AcGeTol().equalPoint(), 1.0e-10);
    EXPECT_EQ(AcGeTol().equalVector(), 1.0e-10);
    EXPECT_EQ(AcGeContext::gTol.equalPoint(), 1.0e-10);
    EXPECT_EQ(AcGeContext::gTol.equalVector(), 1.0e-10);
    AcGeTol tol;
    tol.setEqualPoint(0.5).setEqualVector(0.25);
    EXPECT_EQ(tol.equalPoint(), 0.5);
    EXPECT_EQ(tol.equalVector(), 0.25);
}

// Doubles from 2^23 = 8388608 to 2^24 are 2^-29 apart, those from 1 to 2 are 2^-52 apart.
TEST(RoundingNoise, IsFourUnitsInTheLastPlaceOfTheLargestCoordinate) {
    EXPECT_EQ(roundingNoise({{1.0, 0.0, 0.0}}), 0x1p-50);
    EXPECT_EQ(roundingNoise({{0.0, -1.5, 0.0}}), 0x1p-50);
    EXPECT_EQ(roundingNoise({{1.0, 2.0, 3.0}, {0.0, 0.0, -1.0e7}}), 0x1p-27);
    EXPECT_EQ(roundingNoise({{8388608.0, 0.0, 0.0}}), 0x1p-27);
    EXPECT_EQ(roundingNoise({{std::nextafter(8388608.0, 0.0), 0.0, 0.0}}), 0x1p-28);
}

TEST(RoundingNoise, IsNoneForNumbersWithoutEnd) {
    EXPECT_EQ(roundingNoise({{std::numeric_limits<double>::infinity(), 0.0, 0.0}}), 0.0);
}

TEST(RoundingNoise, PointsMeetWithinTheGreaterOfBoth) {
    EXPECT_EQ(meetingDistance(AcGeTol(), 0x1p-50), 1.0e-10);
    EXPECT_EQ(meetingDistance(AcGeTol(), 0x1p-27), 0x1p-27);
}

TEST(RoundingNoise, DirectionsAgreeWithinTheNoiseOverTheLength) {
    EXPECT_EQ(agreeingAngle(AcGeTol(), 0x1p-27, 1000.0), 1.0e-10);
    EXPECT_EQ(agreeingAngle(AcGeTol(), 0x1p-27, 0.5), 0x1p-26);
    EXPECT_EQ(agreeingAngle(AcGeTol(), 0.0, 0.0), std::numeric_limits<double>::infinity());
}

TEST(RoundingNoise, LetsSurveyCoordinatesMeet) {
    const double next = 1.0e7 + 0x1p-28; // two units in the last place further
    const double tooFar = 1.0e7 + 0x1p-26;
    EXPECT_TRUE(AcGePoint3d(1.0e7, 5.0, 0.0).isEqualTo({next, 5.0, 0.0}));
    EXPECT_TRUE(AcGePoint3d(1.0e7, 5.0, 0.0) == AcGePoint3d(next, 5.0, 0.0));
    EXPECT_FALSE(AcGePoint3d(1.0e7, 5.0, 0.0).isEqualTo({tooFar, 5.0, 0.0}));
    EXPECT_FALSE(AcGePoint3d(1.0, 5.0, 0.0).isEqualTo({1.0 + 0x1p-28, 5.0, 0.0}))
        << "far above the tolerance where coordinates are small";
}

} // namespace
