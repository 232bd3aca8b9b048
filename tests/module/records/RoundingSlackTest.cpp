// What rounding may hide between pipes: a hundred-million-millionth of the largest coordinate.

#include "records/PipeBox.h"

#include <gtest/gtest.h>

namespace module_tests {
namespace {

using tkvlt::RoundingSlack;

/// The middle at (-700, 30, 2), so that the circle comes as far as 900 from the origin.
AcGeCircArc3d farArc() {
    return {{-700, 30, 2}, {0, 0, 1}, 200.0};
}

TEST(RoundingSlackTest, GoesByTheLargestCoordinateOfAPoint) {
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(3, -4, 2)), 4e-14);
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(-5, 1, 2)), 5e-14);
    EXPECT_DOUBLE_EQ(RoundingSlack(AcGePoint3d(3, 1, -6)), 6e-14);
}

TEST(RoundingSlackTest, OfAnArcIsThatOfItsWholeCircle) {
    EXPECT_DOUBLE_EQ(RoundingSlack(farArc()), 900e-14);
}

} // namespace
} // namespace module_tests
