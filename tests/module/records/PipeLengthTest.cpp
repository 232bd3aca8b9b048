#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <random>

namespace module_tests {
namespace {

constexpr double kQuarter = 0.41421356237309503; // tan(pi / 8)
constexpr double kQuarterLength = 15.707963267948966;

class PipeLength : public DrawingTest {
protected:
    _Pipe pipeFrom(const AcGePoint3d& from, const AcGePoint3d& to) {
        return _Pipe(drawing.addPipe(from, to), kSewer);
    }
};

TEST_F(PipeLength, WholeLineIsTheDistanceOfItsEndsInSpace) {
    EXPECT_DOUBLE_EQ(pipeFrom({0, 0, 0}, {3, 4, 12}).GetLength(), 13.0);
}

TEST_F(PipeLength, PointsOffTheLineAddTheirMisses) {
    _Pipe pipe = pipeFrom({0, 0, 0}, {10, 0, 0});
    // Feet at 2 and 7, misses 3 and 4.
    EXPECT_DOUBLE_EQ(pipe.GetLength({2, 3, 0}, {7, -4, 0}), 12.0);
}

TEST_F(PipeLength, PointsBeyondTheEndsMissByTheirDistanceToTheEnd) {
    _Pipe pipe = pipeFrom({0, 0, 0}, {10, 0, 0});
    // 5 short of the start, and (3, 4) beyond the end: 10 + 5 + 5.
    EXPECT_DOUBLE_EQ(pipe.GetLength({-5, 0, 0}, {13, 4, 0}), 20.0);
}

TEST_F(PipeLength, OnePointTwiceIsItsMissTwice) {
    _Pipe pipe = pipeFrom({0, 0, 0}, {10, 0, 0});
    EXPECT_DOUBLE_EQ(pipe.GetLength({4, 3, 0}, {4, 3, 0}), 6.0);
}

TEST_F(PipeLength, SwappedPointsGiveTheSame) {
    _Pipe line = pipeFrom({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(line.GetLength({2, 3, 0}, {7, -4, 0}), line.GetLength({7, -4, 0}, {2, 3, 0}));
    _Pipe arc(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    EXPECT_EQ(arc.GetLength({11, 1, 0}, {2, 9, 0}), arc.GetLength({2, 9, 0}, {11, 1, 0}));
}

TEST_F(PipeLength, SwappedPointsGiveTheSameToTheLastBit) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> coordinate(-20.0, 20.0);
    _Pipe line = pipeFrom({0, 0, 0}, {10, 0, 0});
    _Pipe arc(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    for (int i = 0; i < 1000; ++i) {
        const AcGePoint3d one(coordinate(random), coordinate(random), 0.0);
        const AcGePoint3d other(coordinate(random), coordinate(random), 0.0);
        ASSERT_EQ(line.GetLength(one, other), line.GetLength(other, one)) << "pair " << i;
        ASSERT_EQ(arc.GetLength(one, other), arc.GetLength(other, one)) << "pair " << i;
    }
}

TEST_F(PipeLength, NoDrawingScaleTakesPart) {
    drawing.setDrawScale(500.0);
    drawing.setDwgScale(3.0);
    EXPECT_DOUBLE_EQ(pipeFrom({0, 0, 0}, {10, 0, 0}).GetLength(), 10.0);
}

TEST_F(PipeLength, LengthSettingTakesNoPart) {
    _Pipe pipe = pipeFrom({0, 0, 0}, {10, 0, 0});
    for (const int mode : {0, 1, 2}) {
        drawing.setLengthMode(mode);
        EXPECT_DOUBLE_EQ(pipe.GetLength(), 10.0);
        EXPECT_DOUBLE_EQ(pipe.GetLength({2, 0, 0}, {5, 0, 0}), 3.0);
    }
}

TEST_F(PipeLength, ArcIsMeasuredAlongTheArc) {
    _Pipe pipe(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    EXPECT_NEAR(pipe.GetLength(), kQuarterLength, 1e-9);
}

TEST_F(PipeLength, ClockwiseArcIsMeasuredAlongTheArc) {
    _Pipe pipe(drawing.addArcPipe({0, 10, 0}, {10, 0, 0}, -kQuarter), kSewer);
    EXPECT_EQ(pipe.isArc, 1);
    EXPECT_TRUE(samePoint(pipe.arc.center(), {0, 0, 0}));
    EXPECT_NEAR(pipe.GetLength(), kQuarterLength, 1e-9);
}

TEST_F(PipeLength, ArcBetweenTwoPlacesIsThePartBetweenThem) {
    _Pipe pipe(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, kQuarter), kSewer);
    // From the middle, (5 sqrt 2, 5 sqrt 2), to a point 2 outside the end: an eighth and the miss.
    const AcGePoint3d middle(7.0710678118654755, 7.0710678118654755, 0);
    EXPECT_NEAR(pipe.GetLength(middle, {0, 12, 0}), kQuarterLength / 2 + 2.0, 1e-9);
}

TEST_F(PipeLength, WhatLiesBeyondTheFirstArcCountsAsStraightMiss) {
    // The arc ends at (0, 10), the polyline at (-5, 10), 5 away from the arc.
    _Pipe pipe(drawing.addPolyline({{10, 0, kQuarter}, {0, 10}, {-3, 14}, {-5, 10}}), kSewer);
    EXPECT_NEAR(pipe.GetLength(), kQuarterLength + 5.0, 1e-9);
}

} // namespace
} // namespace module_tests
