#include "module/gravity_segment/SearchTest.h"

#include <cmath>

namespace module_tests {
namespace {

constexpr double kQuarter = 0.41421356237309503; // tan(pi / 8)
constexpr double kQuarterLength = 15.707963267948966;
constexpr double kHalfRoot = 7.0710678118654755;
constexpr double kRoot = 0.7071067811865476;

class PlaceAnnotation : public SearchTest {
protected:
    /// Makes the pipes of the drawing, in the order of `pipes`, the traced chain.
    void chain(const Ids& pipes, double length) {
        begin();
        ASSERT_EQ(search->CollectEntities(), 1);
        for (const AcDbObjectId& pipe : pipes) {
            search->chainPipes.Add(poolIndexOf(pipe));
        }
        search->chainLength = length;
    }

    int place(const AcGePoint3d& reference) {
        return search->PlaceAnnotation(label, vector, reference);
    }

    AcGePoint3d label{77, 78, 79};
    AcGeVector3d vector{7, 8, 9};
};
INSTANTIATE_TEST_SUITE_P(Modes, PlaceAnnotation, bothModes(), modeName);

TEST_P(PlaceAnnotation, SingleStraightPipeIsLabelledInItsMiddle) {
    chain({drawing.addPipe({0, 0, 0}, {10, 0, 0})}, 10);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {5, 0, 0}));
    EXPECT_TRUE(sameVector(vector, {1, 0, 0}));
}

TEST_P(PlaceAnnotation, SingleStraightPipeDrawnTheOtherWayTurnsTheVector) {
    chain({drawing.addPipe({10, 0, 0}, {0, 0, 0})}, 10);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {5, 0, 0}));
    EXPECT_TRUE(sameVector(vector, {-1, 0, 0}));
}

TEST_P(PlaceAnnotation, SinglePipeIgnoresReferenceAndChainLength) {
    for (const double length : {0.0, 3.0, 1000.0, -5.0}) {
        chain({drawing.addPipe({0, 0, 6}, {10, 0, 6})}, length);
        EXPECT_EQ(place({10, 99, 0}), 1);
        EXPECT_TRUE(samePoint(label, {5, 0, 6}));
        EXPECT_TRUE(sameVector(vector, {1, 0, 0}));
    }
}

TEST_P(PlaceAnnotation, SingleArcIsLabelledInItsMiddleAlongTheTangent) {
    chain({drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter)}, 1);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {kHalfRoot, kHalfRoot, 0}));
    EXPECT_TRUE(sameVector(vector, {-kRoot, kRoot, 0}));
}

TEST_P(PlaceAnnotation, ClockwiseArcHasTheSameCounterClockwiseTangent) {
    chain({drawing.addArcPipe({0, 10, 0}, {10, 0, 0}, -kQuarter)}, 1);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {kHalfRoot, kHalfRoot, 0}));
    EXPECT_TRUE(sameVector(vector, {-kRoot, kRoot, 0}));
}

TEST_P(PlaceAnnotation, MiddleBeyondTheFirstArcFallsBackToTheMiddleOfTheChord) {
    // The arc is 15.7 long, the pipe with its straight tail 55.7: half of it is not on the arc.
    chain({drawing.addPolyline({{10, 0, kQuarter}, {0, 10}, {-40, 10}})}, 1);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {-15, 5, 0}));
    // (-15, 5) turned by a quarter about the centre (0, 0): (-5, -15), sqrt(250) long.
    EXPECT_TRUE(sameVector(vector, {-5 / std::sqrt(250.0), -15 / std::sqrt(250.0), 0}));
}

TEST_P(PlaceAnnotation, TwoPipesAreCountedFromTheEndNearerToTheReference) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {4, 0, 0});
    const AcDbObjectId second = drawing.addPipe({4, 0, 0}, {10, 0, 0});
    chain({first, second}, 10);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {5, 0, 0}));
    EXPECT_TRUE(sameVector(vector, {1, 0, 0}));
    EXPECT_EQ(place({10, 0, 0}), 1); // the second pipe's end is nearer now
    EXPECT_TRUE(samePoint(label, {9, 0, 0}));
}

TEST_P(PlaceAnnotation, VectorOfAStraightPipeIsTheEntitysOwn) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {4, 0, 0});
    const AcDbObjectId second = drawing.addPipe({10, 0, 0}, {4, 0, 0});
    chain({first, second}, 10);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {5, 0, 0}));
    EXPECT_TRUE(sameVector(vector, {-1, 0, 0}));
}

TEST_P(PlaceAnnotation, EndsEquallyFarCountFromTheEndPoint) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {4, 0, 0});
    const AcDbObjectId second = drawing.addPipe({4, 0, 0}, {10, 0, 0});
    chain({first, second}, 10);
    EXPECT_EQ(place({7, 5, 0}), 1);
    EXPECT_TRUE(samePoint(label, {9, 0, 0}));
}

TEST_P(PlaceAnnotation, MiddleAtAJointIsTheNextPipesNearEnd) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {5, 0, 0});
    const AcDbObjectId second = drawing.addPipe({5, 0.25, 0}, {5, 5.25, 0});
    chain({first, second}, 10);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {5, 0.25, 0}));
    EXPECT_TRUE(sameVector(vector, {0, 1, 0}));
}

TEST_P(PlaceAnnotation, ChainOrderAndNotPoolOrderCounts) {
    const AcDbObjectId last = drawing.addPipe({12, 0, 0}, {14, 0, 0});
    const AcDbObjectId middle = drawing.addPipe({2, 0, 0}, {12, 0, 0});
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {2, 0, 0});
    chain({first, middle, last}, 14);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {7, 0, 0}));
}

TEST_P(PlaceAnnotation, PartlyMeasuredChainIsStillCountedOnWholePipes) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {4, 0, 0});
    const AcDbObjectId second = drawing.addPipe({4, 0, 0}, {10, 0, 0});
    chain({first, second}, 5);
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {2.5, 0, 0}));
}

TEST_P(PlaceAnnotation, ChainLongerThanItsPipesTwiceOverGivesZeroAndLeavesBoth) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {4, 0, 0});
    const AcDbObjectId second = drawing.addPipe({4, 0, 0}, {10, 0, 0});
    for (const double length : {20.0, 25.0}) {
        chain({first, second}, length);
        EXPECT_EQ(place({0, 0, 0}), 0);
        EXPECT_TRUE(samePoint(label, {77, 78, 79}, 0.0));
        EXPECT_TRUE(sameVector(vector, {7, 8, 9}, 0.0));
    }
    chain({first, second}, 19.5); // 9.75 is still on the second pipe
    EXPECT_EQ(place({0, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {9.75, 0, 0}));
}

/// A straight pipe of 10 into a quarter circle about (10, 10), from (10, 0) to (20, 10). The middle
/// lies (5 pi - 10) / 2 into the second pipe.
class ArcInAChain : public PlaceAnnotation {
protected:
    void expectAngleFromArcStart(double angle) {
        EXPECT_TRUE(samePoint(label, {10 + 10 * std::sin(angle), 10 - 10 * std::cos(angle), 0}));
        EXPECT_TRUE(sameVector(vector, {std::cos(angle), std::sin(angle), 0}));
    }
    const double intoSecond = (kQuarterLength - 10) / 2;
};
INSTANTIATE_TEST_SUITE_P(Modes, ArcInAChain, bothModes(), modeName);

TEST_P(ArcInAChain, ArcThatRunsWithTheChainIsCountedFromItsStart) {
    const AcDbObjectId line = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId arc = drawing.addArcPipe({10, 0, 0}, {20, 10, 0}, kQuarter);
    chain({line, arc}, 10 + kQuarterLength);
    EXPECT_EQ(place({0, 0, 0}), 1);
    expectAngleFromArcStart(intoSecond / 10);
}

TEST_P(ArcInAChain, ArcThatRunsAgainstTheChainIsCountedFromItsOwnStartToo) {
    // Both distances that are compared are the chord, and equal is not greater.
    const AcDbObjectId line = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId arc = drawing.addArcPipe({20, 10, 0}, {10, 0, 0}, -kQuarter);
    chain({line, arc}, 10 + kQuarterLength);
    EXPECT_EQ(place({0, 0, 0}), 1);
    expectAngleFromArcStart((kQuarterLength - intoSecond) / 10);
}

TEST_P(ArcInAChain, JointBeforeAnArcGivesTheArcsStart) {
    const AcDbObjectId line = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId arc = drawing.addArcPipe({10, 0, 0}, {20, 10, 0}, kQuarter);
    chain({line, arc}, 20);
    EXPECT_EQ(place({0, 0, 0}), 1);
    expectAngleFromArcStart(0);
}

TEST_P(ArcInAChain, MiddleOffTheArcFallsBackToTheMiddleOfTheChord) {
    const AcDbObjectId line = drawing.addPipe({12, 0, 0}, {10, 0, 0});
    const AcDbObjectId tail = drawing.addPolyline({{10, 0, kQuarter}, {0, 10}, {-40, 10}});
    chain({line, tail}, 60); // 28 into a pipe whose arc is 15.7 long
    EXPECT_EQ(place({12, 0, 0}), 1);
    EXPECT_TRUE(samePoint(label, {-15, 5, 0}));
}

TEST_P(ArcInAChain, PipeThatReturnsTowardsItsStartIsCountedFromBehind) {
    // The polyline runs round from (10, 0) to (0, 10) and straight back to (9, 1). From its start
    // to the arc's end it is 14.1, from its end to the arc's start 1.4: the distance is turned
    // round. Its length is the arc up to the foot of (9, 1), and the miss there.
    const AcDbObjectId line = drawing.addPipe({12, 0, 0}, {10, 0, 0});
    const AcDbObjectId back = drawing.addPolyline({{10, 0, kQuarter}, {0, 10}, {9, 1}});
    const double length = 10 * std::atan2(1.0, 9.0) + 10 - std::sqrt(82.0);
    chain({line, back}, 5); // 0.5 into the second pipe
    EXPECT_EQ(place({12, 0, 0}), 1);
    const double angle = (length - 0.5) / 10;
    EXPECT_TRUE(samePoint(label, {10 * std::cos(angle), 10 * std::sin(angle), 0}));
    EXPECT_TRUE(sameVector(vector, {-std::sin(angle), std::cos(angle), 0}));
}

} // namespace
} // namespace module_tests
