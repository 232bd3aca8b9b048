#include "records/IdIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::IdIndex;

AcDbObjectId id(std::int64_t value) {
    return AcDbObjectId::fromOldId(value);
}

TEST(IdIndex, AnEmptyOneKnowsNothing) {
    const IdIndex index;
    EXPECT_TRUE(index.Matches(id(1)).empty());
    EXPECT_TRUE(index.Matches(AcDbObjectId()).empty());
}

TEST(IdIndex, GivesWhatWasAddedUnderAnId) {
    IdIndex index;
    index.Add(id(10), 3);
    index.Add(id(11), 4);
    EXPECT_EQ(index.Matches(id(10)), std::vector<int>{3});
    EXPECT_EQ(index.Matches(id(11)), std::vector<int>{4});
    EXPECT_TRUE(index.Matches(id(12)).empty());
}

TEST(IdIndex, SeveralOfOneIdComeInIncreasingOrderAndEachOnce) {
    IdIndex index;
    for (const int added : {9, 0, 4, 9, 2, 0}) {
        index.Add(id(5), added);
    }
    EXPECT_EQ(index.Matches(id(5)), (std::vector<int>{0, 2, 4, 9}));
}

TEST(IdIndex, TheNullIdIsAnIdLikeAnother) {
    IdIndex index;
    EXPECT_TRUE(index.Matches(AcDbObjectId()).empty());
    index.Add(id(1), 7);
    EXPECT_TRUE(index.Matches(AcDbObjectId()).empty());
    index.Add(AcDbObjectId(), 8);
    EXPECT_EQ(index.Matches(AcDbObjectId()), std::vector<int>{8});
}

/// Ids one behind the other, a fixed step apart and strewn about, as many as make it grow often.
TEST(IdIndex, GivesWhatAMapGives) {
    for (const std::int64_t step : {1LL, 64LL, 1LL << 32, (1LL << 32) + 1, 0x61C8864680B583EBLL}) {
        std::mt19937 random(static_cast<std::mt19937::result_type>(step));
        std::map<std::int64_t, std::set<int>> plain;
        IdIndex index;
        for (int added = 0; added < 3000; ++added) {
            const auto place = std::uniform_int_distribution<int>(0, 1999)(random);
            const auto value = static_cast<std::int64_t>(static_cast<std::uint64_t>(step) *
                                                         static_cast<std::uint64_t>(place));
            index.Add(id(value), added % 700);
            plain[value].insert(added % 700);
        }
        for (int place = 0; place < 2500; ++place) {
            const auto value = static_cast<std::int64_t>(static_cast<std::uint64_t>(step) *
                                                         static_cast<std::uint64_t>(place));
            const std::set<int>& expected = plain[value];
            EXPECT_EQ(index.Matches(id(value)), std::vector<int>(expected.begin(), expected.end()))
                << step << " times " << place;
        }
    }
}

} // namespace
} // namespace module_tests
