#include "UtilitiesTest.h"

#include "utilities/LineTests.h"

#include <cmath>

namespace module_tests {
namespace {

/// The result, and the ends of Q as they were left.
struct SeeIfCould {
    int result;
    AcGePoint3d q1;
    AcGePoint3d q2;
};

/// With the line P along the x axis, from 0 to 100, its middle at 50.
SeeIfCould seeIfCould(AcGePoint3d q1, AcGePoint3d q2, const AcGePoint3d& p2 = {100, 0, 0}) {
    const int result = PelSeeIfCould({0, 0, 0}, p2, q1, q2);
    return {result, q1, q2};
}

AcGePoint3d onRay(double degrees, double length) {
    const double angle = degrees * kPi / 180.0;
    return {length * std::cos(angle), length * std::sin(angle), 0};
}

TEST(SeeIfCould, LinesAtMoreThanTheSineOfATenthAreNotParallel) {
    // sin 6 degrees = 0.1045, sin 5 degrees = 0.0872.
    EXPECT_EQ(seeIfCould({0, 0, 0}, onRay(6, 100)).result, 0);
    EXPECT_EQ(seeIfCould({0, 0, 0}, onRay(5, 100)).result, 1);
    EXPECT_EQ(seeIfCould({0, 0, 0}, onRay(-5, 100)).result, 1);
}

TEST(SeeIfCould, OppositeDirectionsAreParallel) {
    EXPECT_EQ(seeIfCould({90, 0, 0}, {10, 0, 0}).result, 1);
}

TEST(SeeIfCould, FirstEndAloneMustLieNearSideways) {
    EXPECT_EQ(seeIfCould({10, 50, 0}, {90, 50, 0}).result, 1);
    EXPECT_EQ(seeIfCould({10, 50.1, 0}, {90, 50.1, 0}).result, 0);
    // 49 off at its begin, 129 off at its end: sine 80/1003.
    EXPECT_EQ(seeIfCould({0, 49, 0}, {1000, 129, 0}, {1000, 0, 0}).result, 1);
    EXPECT_EQ(seeIfCould({1000, 129, 0}, {0, 49, 0}, {1000, 0, 0}).result, 0);
}

TEST(SeeIfCould, LinesEndToEndDoNotOverlap) {
    // Middles 100 apart, the mean of the lengths is 100.
    EXPECT_EQ(seeIfCould({100, 0, 0}, {200, 0, 0}).result, 0);
    EXPECT_EQ(seeIfCould({99, 0, 0}, {200, 0, 0}).result, 2);
}

TEST(SeeIfCould, SameLineLiesWithinReach) {
    const SeeIfCould seen = seeIfCould({0, 0, 0}, {100, 0, 0});
    EXPECT_EQ(seen.result, 1);
    EXPECT_TRUE(samePoint(seen.q1, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100, 0, 0}));
}

TEST(SeeIfCould, HalfAUnitOfPlayAtEachEndIsWithinReach) {
    const SeeIfCould seen = seeIfCould({-0.5, 0, 0}, {100.5, 0, 0});
    EXPECT_EQ(seen.result, 1);
    EXPECT_TRUE(samePoint(seen.q1, {-0.5, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100.5, 0, 0}));
}

TEST(SeeIfCould, MoreThanHalfAUnitOfPlayIsBeyondReach) {
    // 50.6 from the middle, where 50.5 is within reach.
    const SeeIfCould seen = seeIfCould({-0.6, 0, 0}, {50, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {50, 0, 0}));
}

TEST(SeeIfCould, PlayIsCutBackTooOnceTheOtherEndSticksOut) {
    // The begin is 50.3 from the middle: within reach, yet more than half the length.
    const SeeIfCould seen = seeIfCould({-0.3, 0, 0}, {150, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100, 0, 0}));
}

TEST(SeeIfCould, LineBeyondBothEndsIsCutBackAtBoth) {
    const SeeIfCould seen = seeIfCould({-30, 2, 0}, {140, 2, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {0, 2, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100, 2, 0}));
}

TEST(SeeIfCould, LineBeyondBothEndsTheOtherWayIsTurnedRound) {
    const SeeIfCould seen = seeIfCould({140, 0, 0}, {-30, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100, 0, 0}));
}

TEST(SeeIfCould, FirstEndBeyondTheBeginGoesBackToTheBegin) {
    const SeeIfCould seen = seeIfCould({-50, 0, 0}, {50, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {0, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {50, 0, 0}));
}

TEST(SeeIfCould, FirstEndBeyondTheFarEndGoesBackToTheFarEnd) {
    // The place nearest to P's begin is Q's own other end, so P's end counts.
    const SeeIfCould seen = seeIfCould({150, 0, 0}, {50, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {100, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {50, 0, 0}));
}

TEST(SeeIfCould, SecondEndBeyondTheFarEndGoesBackToTheFarEnd) {
    const SeeIfCould seen = seeIfCould({50, 0, 0}, {150, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {50, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {100, 0, 0}));
}

TEST(SeeIfCould, SecondEndBeyondTheBeginGoesBackToTheBegin) {
    const SeeIfCould seen = seeIfCould({50, 0, 0}, {-50, 0, 0});
    EXPECT_EQ(seen.result, 2);
    EXPECT_TRUE(samePoint(seen.q1, {50, 0, 0}));
    EXPECT_TRUE(samePoint(seen.q2, {0, 0, 0}));
}

TEST(SeeIfCould, EndExactlyAtHalfTheLengthIsNotBeyond) {
    // One end is 50 from P's middle, just what is half of P; only the other is cut back, and Q
    // keeps its way.
    const SeeIfCould firstAtHalf = seeIfCould({100, 0, 0}, {-50, 0, 0});
    EXPECT_EQ(firstAtHalf.result, 2);
    EXPECT_TRUE(samePoint(firstAtHalf.q1, {100, 0, 0}));
    EXPECT_TRUE(samePoint(firstAtHalf.q2, {0, 0, 0}));
    const SeeIfCould secondAtHalf = seeIfCould({150, 0, 0}, {0, 0, 0});
    EXPECT_EQ(secondAtHalf.result, 2);
    EXPECT_TRUE(samePoint(secondAtHalf.q1, {100, 0, 0}));
    EXPECT_TRUE(samePoint(secondAtHalf.q2, {0, 0, 0}));
}

int closest(std::initializer_list<AcGePoint3d> list, const AcGePoint3d& from = {0, 0, 0},
            const AcGePoint3d& to = {10, 0, 0}) {
    AcGePoint3dArray points;
    for (const AcGePoint3d& point : list) {
        points.append(point);
    }
    return PelFindClosetPointWithDirection(from, to, points);
}

TEST(FindClosetPointWithDirection, NearestAlongTheDirectionWins) {
    EXPECT_EQ(closest({{30, 0, 0}, {1, 5, 0}, {20, 0, 0}, {25, 0, 0}}), 2);
}

TEST(FindClosetPointWithDirection, DirectionIsKeptWithinTheSineOfATenth) {
    EXPECT_EQ(closest({onRay(6, 5)}), -1);
    EXPECT_EQ(closest({onRay(5, 5)}), 0);
}

TEST(FindClosetPointWithDirection, PointBehindCountsToo) {
    EXPECT_EQ(closest({{30, 0, 0}, {-20, 0, 0}}), 1);
}

TEST(FindClosetPointWithDirection, FirstOfEquallyNearPointsWins) {
    EXPECT_EQ(closest({{-20, 0, 0}, {20, 0, 0}}), 0);
}

TEST(FindClosetPointWithDirection, DirectionsAreTakenInPlanAndDistancesInSpace) {
    // The first is nearer in plan, 5, but 13 away in space from the height 0.
    EXPECT_EQ(closest({{5, 0, 12}, {12, 0, 0}}, {0, 0, 100}, {10, 0, -7}), 1);
    EXPECT_EQ(closest({{5, 0, 12}}), 0);
}

TEST(FindClosetPointWithDirection, NothingBelowTheLimitGivesNone) {
    EXPECT_EQ(closest({}), -1);
    EXPECT_EQ(closest({{99999999999999.9, 0, 0}, {1e15, 0, 0}}), -1);
}

} // namespace
} // namespace module_tests
