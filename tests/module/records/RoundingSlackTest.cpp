// What rounding may hide between pipes: a hundred-million-millionth of the largest coordinate.

#include "records/PipeBox.h"

#include <gtest/gtest.h>

namespace module_tests {
namespace {

using tkvlt::RecordPool;
using tkvlt::RoundingSlack;

/// The middle at (-700, 30, 2), so that the circle comes as far as 900 from the origin.
AcGeCircArc3d farArc() {
    return {{-700, 30, 2}, {0, 0, 1}, 200.0};
}

_Pipe pipe(const AcGePoint3d& start, const AcGePoint3d& end) {
    _Pipe made;
    made.isPolyline = 0;
    made.startPoint = start;
    made.endPoint = end;
    return made;
}

TEST(RoundingSlackTest, GoesByTheLargestCoordinateOfAPoint) {
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(3, -4, 2)), 4e-14);
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(-5, 1, 2)), 5e-14);
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(3, 1, -6)), 6e-14);
}

TEST(RoundingSlackTest, OfAnArcIsThatOfItsWholeCircle) {
    EXPECT_DOUBLE_EQ(RoundingSlack(farArc()), 900e-14);
}

TEST(RoundingSlackTest, OfPipesIsTheLargestOfTheirEnds) {
    RecordPool<_Pipe> pipes;
    EXPECT_EQ(RoundingSlack(pipes), 0.0);
    pipes.Add(pipe({1, 2, 3}, {-8, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 8e-14);
    pipes.Add(pipe({1, 50, 3}, {1, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 50e-14);
    pipes.Add(pipe({1, 2, 3}, {1, 2, 4}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 50e-14) << "the last is nearer to the origin";
}

TEST(RoundingSlackTest, AnArcCountsOnlyForAPipeThatIsOne) {
    _Pipe bent = pipe({1, 2, 3}, {4, 2, 3});
    bent.arc = farArc();
    RecordPool<_Pipe> pipes;
    pipes.Add(bent);
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 4e-14);
    bent.isArc = 1;
    pipes.Add(bent);
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 900e-14);
    pipes.Add(pipe({0, 0, 0}, {1000, 0, 0}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 1000e-14);
}

TEST(RoundingSlackTest, AnArcNearerThanThePipesBeforeItChangesNothing) {
    RecordPool<_Pipe> pipes;
    pipes.Add(pipe({0, 0, 0}, {1000, 0, 0}));
    _Pipe bent = pipe({1, 2, 3}, {4, 2, 3});
    bent.arc = farArc();
    bent.isArc = 1;
    pipes.Add(bent);
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 1000e-14);
}

} // namespace
} // namespace module_tests
