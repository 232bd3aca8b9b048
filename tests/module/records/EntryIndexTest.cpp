// Entries of a pool are found by their entity, however often is asked and however the ids stand.

#include "records/Candidates.h"
#include "records/Pipe.h"

#include <gtest/gtest.h>

#include <vector>

namespace module_tests {
namespace {

using tkvlt::EntryIndex;

AcDbObjectId id(std::int64_t value) {
    return AcDbObjectId::fromOldId(value);
}

/// Far more questions than are answered by looking through the pool.
constexpr int kQuestions = 20;

TEST(EntryIndex, AnEntryIsFoundHoweverOftenIsAsked) {
    tkvlt::RecordPool<_Pipe> pool;
    // Descending and then strewn about, as ids stand in a drawing that was edited.
    for (const std::int64_t value : {90, 80, 70, 60, 50, 40, 65, 15, 95, 5}) {
        pool.AddUnread(id(value), nullptr);
    }
    const EntryIndex index;
    for (int question = 0; question < kQuestions; ++question) {
        EXPECT_EQ(index.Matches(pool, id(90)), std::vector<int>{0}) << question;
        EXPECT_EQ(index.Matches(pool, id(60)), std::vector<int>{3}) << question;
        EXPECT_EQ(index.Matches(pool, id(15)), std::vector<int>{7}) << question;
        EXPECT_EQ(index.Matches(pool, id(5)), std::vector<int>{9}) << question;
        for (const std::int64_t unknown : {1, 66, 99}) {
            EXPECT_TRUE(index.Matches(pool, id(unknown)).empty()) << question;
        }
    }
}

TEST(EntryIndex, EntriesOfOneEntityComeInPoolOrderAlsoThoseTakenAway) {
    tkvlt::RecordPool<_Pipe> pool;
    for (const std::int64_t value : {7, 3, 7, 9, 7, 3}) {
        pool.AddUnread(id(value), nullptr);
    }
    pool.Remove(2);
    const EntryIndex index;
    for (int question = 0; question < kQuestions; ++question) {
        EXPECT_EQ(index.Matches(pool, id(7)), (std::vector<int>{0, 2, 4})) << question;
        EXPECT_EQ(index.Matches(pool, id(3)), (std::vector<int>{1, 5})) << question;
        EXPECT_EQ(index.Matches(pool, id(9)), std::vector<int>{3}) << question;
    }
}

} // namespace
} // namespace module_tests
