#include "records/MedianReach.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace module_tests {
namespace {

double medianOf(const std::vector<double>& reaches) {
    return tkvlt::MedianReach(reaches.size(), [&](std::size_t at) { return reaches[at]; });
}

constexpr double kBoundless = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(MedianReach, IsTheMiddleOneOfTwoTheLarger) {
    EXPECT_EQ(medianOf({0.5}), 0.5);
    EXPECT_EQ(medianOf({3.0, 1.0, 2.0}), 2.0);
    EXPECT_EQ(medianOf({4.0, 1.0, 3.0, 2.0}), 3.0);
}

TEST(MedianReach, OneWellBeyondAllOthersDoesNotCount) {
    EXPECT_EQ(medianOf({0.5, 400.0, 0.5, 0.6, 0.5}), 0.5);
}

TEST(MedianReach, WhatIsNotFiniteAndPositiveIsLeftOut) {
    EXPECT_EQ(medianOf({kNoNumber, 0.0, -3.0, kBoundless, -kBoundless, 0.7}), 0.7);
    EXPECT_EQ(medianOf({kNoNumber, 0.0, -3.0, kBoundless}), 0.0);
    EXPECT_EQ(medianOf({}), 0.0);
}

// Two thirds of the wells are small, however they stand in the drawing: one way and another, in
// turn, or one kind behind the other.
TEST(MedianReach, OfManyItIsThatOfMost) {
    constexpr int count = 90000;
    const auto inTurn = [](int at) { return at % 3 == 0; };
    const auto inLongTurns = [](int at) { return at / 1024 % 3 == 0; };
    const auto inFront = [](int at) { return at < count / 3; };
    for (const auto isLarge : std::vector<bool (*)(int)>{inTurn, inLongTurns, inFront}) {
        std::vector<double> reaches;
        for (int at = 0; at < count; ++at) {
            reaches.push_back(isLarge(at) ? 400.0 : 0.5);
        }
        EXPECT_EQ(medianOf(reaches), 0.5);
    }
}

} // namespace
} // namespace module_tests
