// A search takes entries out of its pools, and begins anew with what was collected.

#include "records/RecordPool.h"
#include "records/Candidates.h"
#include "records/Pipe.h"

#include <gtest/gtest.h>

#include <vector>

namespace module_tests {
namespace {

using Pool = tkvlt::RecordPool<_Pipe>;

/// Entries 0 to `count` - 1, each with its number as the end's X.
Pool poolOf(int count) {
    Pool pool;
    for (int i = 0; i < count; ++i) {
        _Pipe pipe;
        pipe.isPolyline = 0;
        pipe.endPoint.x = i;
        EXPECT_EQ(pool.Add(pipe), i);
    }
    return pool;
}

std::vector<int> present(const Pool& pool) {
    const tkvlt::Indices indices = tkvlt::AllPresent(pool);
    return {indices.begin(), indices.end()};
}

TEST(RecordPool, IsEmptyWhenTheLastEntryIsTaken) {
    EXPECT_TRUE(Pool().IsEmpty());
    Pool pool = poolOf(2);
    EXPECT_FALSE(pool.IsEmpty());
    pool.Remove(1);
    EXPECT_FALSE(pool.IsEmpty());
    pool.Remove(0);
    EXPECT_TRUE(pool.IsEmpty());
    EXPECT_EQ(pool.Size(), 2) << "indices stay as they were given";
}

TEST(RecordPool, WhatIsTakenKeepsItsRecordAndTheOthersTheirOrder) {
    Pool pool = poolOf(4);
    pool.Remove(1);
    EXPECT_EQ(present(pool), (std::vector<int>{0, 2, 3}));
    EXPECT_EQ(pool[1].endPoint.x, 1.0);
    EXPECT_EQ(pool[3].endPoint.x, 3.0);
}

TEST(RecordPool, AnEntryPutBackStandsWhereItStood) {
    Pool pool = poolOf(3);
    pool.Remove(0);
    pool.Remove(1);
    pool.Remove(2);
    pool.PutBack(1);
    EXPECT_FALSE(pool.IsEmpty());
    EXPECT_EQ(present(pool), std::vector<int>{1});
    pool.PutBack(0);
    EXPECT_EQ(present(pool), (std::vector<int>{0, 1}));
    pool.Remove(0);
    pool.Remove(1);
    EXPECT_TRUE(pool.IsEmpty());
}

TEST(RecordPool, RestoredItHasItsFirstEntriesAllPresent) {
    Pool pool = poolOf(5);
    for (const int taken : {0, 2, 4}) {
        pool.Remove(taken);
    }
    pool.RestoreFirst(3);
    EXPECT_EQ(pool.Size(), 3);
    EXPECT_EQ(present(pool), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(pool[2].endPoint.x, 2.0);
    for (const int taken : {0, 1, 2}) {
        EXPECT_FALSE(pool.IsEmpty());
        pool.Remove(taken);
    }
    EXPECT_TRUE(pool.IsEmpty());
}

TEST(RecordPool, ClosedUpItHasWhatWasLeftInItsOrder) {
    Pool pool = poolOf(5);
    for (const int taken : {0, 2, 3}) {
        pool.Remove(taken);
    }
    pool.CloseUp();
    ASSERT_EQ(pool.Size(), 2);
    EXPECT_EQ(present(pool), (std::vector<int>{0, 1}));
    EXPECT_EQ(pool[0].endPoint.x, 1.0);
    EXPECT_EQ(pool[1].endPoint.x, 4.0);
    pool.Remove(1);
    EXPECT_FALSE(pool.IsEmpty());
    pool.Remove(0);
    EXPECT_TRUE(pool.IsEmpty());
    pool.CloseUp();
    EXPECT_EQ(pool.Size(), 0);
}

TEST(RecordPool, RestoredWithoutEntriesItIsEmptyAndTakesNewOnes) {
    Pool pool = poolOf(2);
    pool.RestoreFirst(0);
    EXPECT_TRUE(pool.IsEmpty());
    EXPECT_EQ(pool.Size(), 0);
    _Pipe pipe;
    pipe.isPolyline = 0;
    EXPECT_EQ(pool.Add(pipe), 0);
    EXPECT_FALSE(pool.IsEmpty());
}

} // namespace
} // namespace module_tests
