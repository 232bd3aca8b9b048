#include "records/Indices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::Indices;

constexpr auto kFew = static_cast<int>(Indices::kFew);

Indices listOf(const std::vector<int>& values) {
    Indices indices;
    for (const int value : values) {
        indices.push_back(value);
    }
    return indices;
}

/// `count` falling numbers, so that no order comes by itself.
std::vector<int> falling(int count) {
    std::vector<int> values;
    for (int i = count; i > 0; --i) {
        values.push_back(3 * i);
    }
    return values;
}

class IndicesOfLength : public testing::TestWithParam<int> {};

TEST_P(IndicesOfLength, AreThoseThatWerePutIn) {
    const std::vector<int> values = falling(GetParam());
    const Indices indices = listOf(values);
    ASSERT_EQ(indices.size(), values.size());
    EXPECT_EQ(indices.empty(), values.empty());
    EXPECT_EQ(std::vector<int>(indices.begin(), indices.end()), values);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(indices[i], values[i]);
    }
}

TEST_P(IndicesOfLength, SortedEachStandsOnce) {
    std::vector<int> values = falling(GetParam());
    Indices indices = listOf(values);
    indices.Append(listOf(values));
    ASSERT_EQ(indices.size(), 2 * values.size());
    indices.SortUnique();
    std::reverse(values.begin(), values.end());
    EXPECT_EQ(indices, values);
}

TEST_P(IndicesOfLength, WhatIsErasedLeavesTheRestInItsOrder) {
    const auto isEven = [](int value) { return value % 2 == 0; };
    std::vector<int> values = falling(GetParam());
    Indices indices = listOf(values);
    indices.EraseIf(isEven);
    std::erase_if(values, isEven);
    EXPECT_EQ(indices, values);
    indices.push_back(7);
    values.push_back(7);
    EXPECT_EQ(indices, values);
}

TEST_P(IndicesOfLength, EmptiedTheyCanBeFilledAgain) {
    Indices indices = listOf(falling(GetParam()));
    indices.EraseIf([](int) { return true; });
    EXPECT_TRUE(indices.empty());
    EXPECT_EQ(indices.begin(), indices.end());
    const std::vector<int> values = falling(2 * kFew);
    for (const int value : values) {
        indices.push_back(value);
    }
    EXPECT_EQ(indices, values);
}

TEST_P(IndicesOfLength, CopiesAndWhatTheyWereCopiedFromStandApart) {
    const std::vector<int> values = falling(GetParam());
    Indices indices = listOf(values);
    Indices copy = indices;
    copy.push_back(1);
    EXPECT_EQ(indices, values);
    EXPECT_EQ(copy.size(), values.size() + 1);
    const Indices moved = std::move(indices);
    EXPECT_EQ(moved, values);
}

INSTANTIATE_TEST_SUITE_P(AroundFew, IndicesOfLength,
                         testing::Values(0, 1, 2, kFew - 1, kFew, kFew + 1, 2 * kFew, 100));

TEST(Indices, OfOtherLengthOrOrderAreOthers) {
    EXPECT_FALSE(listOf({1, 2}) == std::vector<int>{1});
    EXPECT_FALSE(listOf({1}) == (std::vector<int>{1, 2}));
    EXPECT_FALSE(listOf({1, 2}) == (std::vector<int>{2, 1}));
    EXPECT_TRUE(listOf({1, 2}) == listOf({1, 2}));
}

// The same steps on a list and on a vector, lengths going up and down through the border.
TEST(Indices, ManyStepsGiveWhatAVectorGives) {
    std::mt19937 random(20);
    Indices indices;
    std::vector<int> plain;
    for (int step = 0; step < 5000; ++step) {
        const int value = std::uniform_int_distribution<int>(0, 99)(random);
        switch (std::uniform_int_distribution<int>(0, 19)(random)) {
        case 0: {
            const auto isGone = [value](int other) { return other > value; };
            indices.EraseIf(isGone);
            std::erase_if(plain, isGone);
            break;
        }
        case 1:
            indices.SortUnique();
            std::sort(plain.begin(), plain.end());
            plain.erase(std::unique(plain.begin(), plain.end()), plain.end());
            break;
        default:
            indices.push_back(value);
            plain.push_back(value);
            break;
        }
        ASSERT_EQ(indices, plain) << step;
    }
}

} // namespace
} // namespace module_tests
