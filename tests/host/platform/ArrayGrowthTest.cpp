// How often the arrays ask for memory. In this program they ask here.

#include "platform/AcArray.h"
#include "platform/CArray.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

int askedFor = 0;

/// How often memory is asked for while `work` runs.
template<class Work>
int timesDuring(Work work) {
    const int before = askedFor;
    work();
    return askedFor - before;
}

} // namespace

void* host_storage::resize(void* memory, std::size_t bytes) noexcept {
    ++askedFor;
    return std::realloc(memory, bytes);
}

namespace {

using Numbers = CArray<int, int>;
using Ids = AcArray<int>;

void addUpTo(Numbers& array, INT_PTR size) {
    while (array.GetSize() < size) {
        array.Add(0);
    }
}

TEST(CArrayGrowth, AnEmptyArrayTakesNothing) {
    static_assert(sizeof(Numbers) == sizeof(CObject) + sizeof(void*));
    EXPECT_EQ(timesDuring([] {
                  Numbers array;
                  array.SetSize(0, 0);
                  array.RemoveAll();
                  array.FreeExtra();
              }),
              0);
}

TEST(CArrayGrowth, TheFirstRoomIsExactAndThenFourMoreAtATime) {
    Numbers array;
    array.SetSize(2);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1); // 6
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 6); }), 0);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1); // 10
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 10); }), 0);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1);
}

TEST(CArrayGrowth, LargeArraysGrowByAnEighthButAtMost1024) {
    Numbers array;
    array.SetSize(80);
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 90); }), 1); // an eighth of 80
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1);
    Numbers large;
    large.SetSize(100'000);
    EXPECT_EQ(timesDuring([&] { addUpTo(large, 101'024); }), 1);
    EXPECT_EQ(timesDuring([&] { large.Add(0); }), 1);
}

TEST(CArrayGrowth, GrowsByAsManyAtATimeAsItIsTold) {
    Numbers array;
    array.SetSize(1);
    array.SetSize(1, 100);
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 101); }), 1);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1);
}

TEST(CArrayGrowth, KeepsWhatItGrowsByWithoutElements) {
    Numbers array;
    array.SetSize(0, 100);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 100); }), 1);
    array.RemoveAll();
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 100); }), 1);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1);
    array.RemoveAll();
    array.SetSize(0, 0); // as one that was never told
    EXPECT_EQ(timesDuring([&] { array.SetSize(1); }), 1);
    EXPECT_EQ(timesDuring([&] { addUpTo(array, 5); }), 1);
    EXPECT_EQ(timesDuring([&] { array.Add(0); }), 1);
}

TEST(AcArrayGrowth, AnEmptyArrayTakesNothing) {
    static_assert(sizeof(Ids) == sizeof(void*));
    EXPECT_EQ(timesDuring([] {
                  const Ids array(0, 8);
                  Ids copy(array);
                  copy = array;
                  copy.removeAll().setPhysicalLength(0);
              }),
              0);
}

TEST(AcArrayGrowth, KeepsItsGrowLengthWithoutElements) {
    Ids array(0, 3);
    EXPECT_EQ(array.physicalLength(), 0);
    EXPECT_EQ(array.asArrayPtr(), nullptr);
    array.append(1);
    EXPECT_EQ(array.physicalLength(), 3);
    array.setPhysicalLength(0);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(array.growLength(), 3);
    EXPECT_EQ(array.asArrayPtr(), nullptr);
    array.setGrowLength(8);
    EXPECT_EQ(array.growLength(), 8);
    EXPECT_EQ(array.asArrayPtr(), nullptr);
}

} // namespace
