#include "records/MedianReach.h"

#include <gtest/gtest.h>

#include <limits>

namespace module_tests {
namespace {

using tkvlt::MedianReach;

constexpr double kBoundless = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(MedianReach, IsTheMiddleOneOfTwoTheLarger) {
    EXPECT_EQ(MedianReach({0.5}), 0.5);
    EXPECT_EQ(MedianReach({3.0, 1.0, 2.0}), 2.0);
    EXPECT_EQ(MedianReach({4.0, 1.0, 3.0, 2.0}), 3.0);
}

TEST(MedianReach, OneWellBeyondAllOthersDoesNotCount) {
    EXPECT_EQ(MedianReach({0.5, 400.0, 0.5, 0.6, 0.5}), 0.5);
}

TEST(MedianReach, WhatIsNotFiniteAndPositiveIsLeftOut) {
    EXPECT_EQ(MedianReach({kNoNumber, 0.0, -3.0, kBoundless, -kBoundless, 0.7}), 0.7);
    EXPECT_EQ(MedianReach({kNoNumber, 0.0, -3.0, kBoundless}), 0.0);
    EXPECT_EQ(MedianReach({}), 0.0);
}

} // namespace
} // namespace module_tests
