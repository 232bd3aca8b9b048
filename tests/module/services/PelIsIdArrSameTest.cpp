#include "utilities/PelIsIdArrSame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

namespace module_tests {
namespace {

AcDbObjectIdArray list(const std::vector<int>& numbers) {
    AcDbObjectIdArray ids;
    for (const int number : numbers) {
        ids.append(AcDbObjectId::fromOldId(number));
    }
    return ids;
}

int same(const std::vector<int>& a, const std::vector<int>& b) {
    return PelIsIdArrSame(list(a), list(b));
}

/// The plain road: strike out pair by pair.
int sameByStrikingOut(std::vector<int> a, std::vector<int> b) {
    if (a.size() != b.size()) {
        return 0;
    }
    for (std::size_t i = 0; i < a.size();) {
        const auto match = std::find(b.begin(), b.end(), a[i]);
        if (match == b.end()) {
            ++i;
            continue;
        }
        a.erase(a.begin() + static_cast<std::ptrdiff_t>(i));
        b.erase(match);
    }
    return a.empty() && b.empty() ? 1 : 0;
}

TEST(PelIsIdArrSame, TwoEmptyListsAreTheSame) {
    EXPECT_EQ(same({}, {}), 1);
}

TEST(PelIsIdArrSame, OrderDoesNotMatter) {
    EXPECT_EQ(same({1, 2}, {2, 1}), 1);
    EXPECT_EQ(same({3, 1, 2, 1}, {1, 1, 2, 3}), 1);
}

TEST(PelIsIdArrSame, RepeatedIdsCount) {
    EXPECT_EQ(same({1, 1, 2}, {1, 2, 2}), 0);
    EXPECT_EQ(same({1, 1, 2}, {1, 2, 1}), 1);
}

TEST(PelIsIdArrSame, OtherLengthsAreNotTheSame) {
    EXPECT_EQ(same({1}, {}), 0);
    EXPECT_EQ(same({1, 2}, {1, 2, 2}), 0);
}

TEST(PelIsIdArrSame, OneOtherIdIsEnough) {
    EXPECT_EQ(same({1, 2, 3}, {1, 2, 4}), 0);
    EXPECT_EQ(same({1}, {0}), 0); // 0 is the null id
    EXPECT_EQ(same({0}, {0}), 1);
}

TEST(PelIsIdArrSame, ListIsTheSameAsItself) {
    const AcDbObjectIdArray ids = list({5, 4, 5});
    EXPECT_EQ(PelIsIdArrSame(ids, ids), 1);
}

TEST(PelIsIdArrSame, ListsStayAsTheyWere) {
    const AcDbObjectIdArray a = list({3, 1});
    const AcDbObjectIdArray b = list({1, 3});
    EXPECT_EQ(PelIsIdArrSame(a, b), 1);
    EXPECT_TRUE(a == list({3, 1}));
    EXPECT_TRUE(b == list({1, 3}));
}

TEST(PelIsIdArrSame, AgreesWithStrikingOutPairByPair) {
    std::mt19937 random(11);
    int seen[2] = {0, 0};
    for (int round = 0; round < 2000; ++round) {
        std::vector<int> a(random() % 6);
        std::vector<int> b(random() % 3 == 0 ? random() % 6 : a.size());
        for (int& id : a) {
            id = static_cast<int>(random() % 3);
        }
        for (int& id : b) {
            id = static_cast<int>(random() % 3);
        }
        const int expected = sameByStrikingOut(a, b);
        ++seen[expected];
        ASSERT_EQ(same(a, b), expected) << "round " << round;
    }
    EXPECT_GT(seen[0], 100);
    EXPECT_GT(seen[1], 100);
}

} // namespace
} // namespace module_tests
