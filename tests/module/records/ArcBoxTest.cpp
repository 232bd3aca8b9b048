#include "records/PipeBox.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tkvlt {
namespace {

/// The place on the arc's circle beside one of its ends: where the curve itself runs.
AcGePoint3d onCircle(const AcGeCircArc3d& arc, const AcGePoint3d& end) {
    AcGeVector3d outward = end - arc.center();
    return arc.center() + outward.normalize() * arc.radius();
}

bool holds(const PlanBox& box, const AcGePoint3d& point) {
    return point.x >= box.minX && point.x <= box.maxX && point.y >= box.minY && point.y <= box.maxY;
}

void expectBox(const PlanBox& box, const PlanBox& expected) {
    EXPECT_NEAR(box.minX, expected.minX, 1e-9);
    EXPECT_NEAR(box.minY, expected.minY, 1e-9);
    EXPECT_NEAR(box.maxX, expected.maxX, 1e-9);
    EXPECT_NEAR(box.maxY, expected.maxY, 1e-9);
}

TEST(ArcBox, HoldsTheCurveOfAnArcThroughThreePointsOfWhichTwoAreClose) {
    // Each arc ends a little behind its middle point, as what is left of an arc that was cut close
    // to its end does.
    for (const double radius : {100.0, 1000.0, 5000.0}) {
        for (int i = 0; i < 200; ++i) {
            const double from = -0.9 - 0.003 * i;
            const double middle = 0.01417 + 0.011 / radius + 0.0077 * i;
            const double to = 0.01417 + 0.0077 * i;
            const auto at = [radius](double angle) {
                return AcGePoint3d(radius * std::cos(angle), radius * std::sin(angle), 0.0);
            };
            AcGeCircArc3d arc;
            arc.set(at(from), at(middle), at(to));
            const PlanBox box = ArcBox(arc);
            EXPECT_TRUE(holds(box, onCircle(arc, arc.startPoint()))) << radius << ' ' << i;
            EXPECT_TRUE(holds(box, onCircle(arc, arc.endPoint()))) << radius << ' ' << i;
        }
    }
}

TEST(ArcBox, IsNoLargerThanAQuarterNeeds) {
    // From east to north on a circle of radius 2 about (10, 20).
    AcGeCircArc3d arc;
    const double diagonal = std::sqrt(2.0);
    arc.set({12.0, 20.0, 0.0}, {10.0 + diagonal, 20.0 + diagonal, 0.0}, {10.0, 22.0, 0.0});
    expectBox(ArcBox(arc), {10.0, 20.0, 12.0, 22.0});
}

TEST(ArcBox, PointsBehindTheBeginAreLeftOut) {
    // From north to west on that circle: east and south are behind the begin.
    AcGeCircArc3d arc;
    const double diagonal = std::sqrt(2.0);
    arc.set({10.0, 22.0, 0.0}, {10.0 - diagonal, 20.0 + diagonal, 0.0}, {8.0, 20.0, 0.0});
    expectBox(ArcBox(arc), {8.0, 20.0, 10.0, 22.0});
}

TEST(ArcBox, AroundOneQuarterPointStopsShortOfTheMiddle) {
    // An eighth to either side of east, north, west and south, on a circle of radius 2 about
    // (10, 20): each box goes from the chord to the quarter point.
    const double half = std::sqrt(2.0); // of the chord, and the chord's distance from the middle
    const auto aboutMiddle = [](double x, double y) { return AcGePoint3d(10 + x, 20 + y, 0); };
    AcGeCircArc3d east;
    east.set(aboutMiddle(half, -half), aboutMiddle(2, 0), aboutMiddle(half, half));
    expectBox(ArcBox(east), {10 + half, 20 - half, 12, 20 + half});
    AcGeCircArc3d north;
    north.set(aboutMiddle(half, half), aboutMiddle(0, 2), aboutMiddle(-half, half));
    expectBox(ArcBox(north), {10 - half, 20 + half, 10 + half, 22});
    AcGeCircArc3d west;
    west.set(aboutMiddle(-half, half), aboutMiddle(-2, 0), aboutMiddle(-half, -half));
    expectBox(ArcBox(west), {8, 20 - half, 10 - half, 20 + half});
    AcGeCircArc3d south;
    south.set(aboutMiddle(-half, -half), aboutMiddle(0, -2), aboutMiddle(half, -half));
    expectBox(ArcBox(south), {10 - half, 18, 10 + half, 20 - half});
}

TEST(ArcBox, HoldsAQuarterPointThatLiesJustBeforeTheEnd) {
    // A millionth of a radian past north on a radius of a million: the end is 1e6 * (1e-6)^2 / 2,
    // so 5e-7, below the northernmost point.
    constexpr double radius = 1e6;
    const auto at = [](double angle) {
        return AcGePoint3d(radius * std::cos(angle), radius * std::sin(angle), 0.0);
    };
    const double north = std::acos(0.0);
    AcGeCircArc3d arc;
    arc.set(at(0.0), at(north / 2.0), at(north + 1e-6));
    EXPECT_GE(ArcBox(arc).maxY, radius - 1e-8);
}

/// Given three points of which two nearly coincide, one of them a hair's breadth above the plan,
/// the circle passes the ends by centimetres.
TEST(ArcBox, HoldsTheGivenEndsOfAnArcThatIsNotQuiteInPlan) {
    constexpr double radius = 1e5;
    for (int i = 0; i < 400; ++i) {
        const double turn = 0.0157 * i; // all round
        const auto at = [turn](double angle, double height) {
            return AcGePoint3d(radius * std::cos(turn + angle), radius * std::sin(turn + angle),
                               height);
        };
        AcGeCircArc3d arc;
        arc.set(at(-1.5, 0.0), at(-3e-10, 0.0), at(0.0, 3e-12));
        EXPECT_TRUE(holds(ArcBox(arc), arc.startPoint())) << i;
        EXPECT_TRUE(holds(ArcBox(arc), arc.endPoint())) << i;
    }
}

TEST(ArcBox, ArcThatStandsOnEdgeHasTheBoxOfItsWholeSphere) {
    // Quarters of a radius of 2 about (10, 20, 0), one above the X axis and one above the Y axis.
    const double diagonal = std::sqrt(2.0);
    AcGeCircArc3d aboveX;
    aboveX.set({12.0, 20.0, 0.0}, {10.0 + diagonal, 20.0, diagonal}, {10.0, 20.0, 2.0});
    AcGeCircArc3d aboveY;
    aboveY.set({10.0, 22.0, 0.0}, {10.0, 20.0 + diagonal, diagonal}, {10.0, 20.0, 2.0});
    for (const AcGeCircArc3d& arc : {aboveX, aboveY}) {
        expectBox(ArcBox(arc), {8.0, 18.0, 12.0, 22.0});
    }
}

} // namespace
} // namespace tkvlt
