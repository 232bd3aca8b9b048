#include "platform/AcArray.h"

#include "Movable.h"
#include "platform/CString.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <utility>

namespace {

using Numbers = AcArray<int>;

Numbers numbers(std::initializer_list<int> values) {
    Numbers array;
    for (const int value : values) {
        array.append(value);
    }
    return array;
}

TEST(AcArray, StartsWithTheLengthsGiven) {
    const Numbers plain;
    EXPECT_EQ(plain.physicalLength(), 0);
    EXPECT_EQ(plain.growLength(), 8);
    const Numbers roomy(5, 3);
    EXPECT_EQ(roomy.length(), 0);
    EXPECT_EQ(roomy.physicalLength(), 5);
    EXPECT_EQ(roomy.growLength(), 3);
    EXPECT_THROW(Numbers(-1), CInvalidArgException);
    EXPECT_THROW(Numbers(0, 0), CInvalidArgException);
}

TEST(AcArray, CopyAndMoveTakeTheGrowLengthAlong) {
    Numbers array(0, 3);
    const Numbers copy(array);
    EXPECT_EQ(copy.growLength(), 3);
    array.append(5);
    const Numbers moved(std::move(array));
    EXPECT_EQ(moved.growLength(), 3);
    // NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): it is as a new one
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(array.growLength(), 8);
    // NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    Numbers assigned;
    assigned = moved;
    EXPECT_EQ(assigned.growLength(), 8); // an array keeps its own
    EXPECT_EQ(assigned, moved);
}

TEST(AcArray, GrowsByTheGrowLengthAtFirst) {
    Numbers array;
    array.append(1);
    EXPECT_EQ(array.physicalLength(), 8);
    for (int i = 0; i < 8; ++i) {
        array.append(i);
    }
    EXPECT_EQ(array.length(), 9);
    EXPECT_EQ(array.physicalLength(), 16);
}

TEST(AcArray, CopyTakesNewStorageOnlyIfTooSmall) {
    const Numbers source = numbers({1, 2, 3});
    Numbers roomy(10);
    roomy.append(7);
    const int* storage = roomy.asArrayPtr();
    roomy = source;
    EXPECT_EQ(roomy, source);
    EXPECT_EQ(roomy.physicalLength(), 10);
    EXPECT_EQ(roomy.asArrayPtr(), storage);
    Numbers small(2);
    small = source;
    EXPECT_EQ(small, source);
    EXPECT_EQ(small.physicalLength(), 3);
    Numbers shrinking = numbers({4, 5, 6, 7});
    shrinking = numbers({9});
    EXPECT_EQ(shrinking, numbers({9}));
    Numbers& self = small;
    small = self;
    EXPECT_EQ(small, source);
}

TEST(AcArray, CopiesAreIndependent) {
    Numbers first = numbers({1, 2});
    const Numbers second(first);
    first[0] = 9;
    EXPECT_EQ(second, numbers({1, 2}));
    const Numbers taken(std::move(first));
    EXPECT_EQ(taken, numbers({9, 2}));
}

TEST(AcArray, EveryBadIndexThrows) {
    Numbers array = numbers({1, 2});
    const Numbers& constant = array;
    for (const int bad : {-1, 2}) {
        EXPECT_THROW(array[bad] = 1, CInvalidArgException);
        EXPECT_THROW(constant.at(bad), CInvalidArgException);
        EXPECT_THROW(array.setAt(bad, 1), CInvalidArgException);
        EXPECT_THROW(array.removeAt(bad), CInvalidArgException);
    }
    EXPECT_THROW(array.insertAt(3, 1), CInvalidArgException);
    EXPECT_THROW(array.insertAt(-1, 1), CInvalidArgException);
    EXPECT_THROW(array.swap(0, 2), CInvalidArgException);
    EXPECT_THROW(array.setLogicalLength(-1), CInvalidArgException);
    EXPECT_EQ(array, numbers({1, 2}));
    Numbers empty;
    EXPECT_THROW(empty.first(), CInvalidArgException);
    EXPECT_THROW(empty.last(), CInvalidArgException);
}

TEST(AcArray, FindsFromAStart) {
    const Numbers array = numbers({5, 6, 5});
    int index = -7;
    EXPECT_TRUE(array.find(5, index));
    EXPECT_EQ(index, 0);
    EXPECT_TRUE(array.find(5, index, 1));
    EXPECT_EQ(index, 2);
    index = -7;
    EXPECT_FALSE(array.find(6, index, 2));
    EXPECT_EQ(index, -7);
    EXPECT_TRUE(array.contains(6));
    EXPECT_FALSE(array.contains(7));
}

TEST(AcArray, InsertsAndRemovesInOrder) {
    Numbers array = numbers({1, 3});
    array.insertAt(1, 2).insertAt(3, 4).insertAt(0, 0);
    EXPECT_EQ(array, numbers({0, 1, 2, 3, 4}));
    array.removeSubArray(1, 2);
    EXPECT_EQ(array, numbers({0, 3, 4}));
    array.removeFirst().removeLast();
    EXPECT_EQ(array, numbers({3}));
    EXPECT_TRUE(array.remove(3));
    EXPECT_FALSE(array.remove(3));
    EXPECT_TRUE(array.isEmpty());
}

TEST(AcArray, AValueFromTheArrayItselfSurvivesGrowth) {
    AcArray<CString> array(1, 1);
    array.append(CString(L"first"));
    array.append(array[0]);
    array.insertAt(0, array[1]);
    array.append(array);
    ASSERT_EQ(array.length(), 6);
    for (const CString& text : array) {
        EXPECT_EQ(text, L"first");
    }
}

TEST(AcArray, LengthsCanBeSet) {
    Numbers array = numbers({1, 2, 3});
    array.setLogicalLength(5);
    EXPECT_EQ(array, numbers({1, 2, 3, 0, 0}));
    array.setLogicalLength(2);
    EXPECT_EQ(array, numbers({1, 2}));
    array.setPhysicalLength(1);
    EXPECT_EQ(array, numbers({1}));
    EXPECT_EQ(array.physicalLength(), 1);
    array.setGrowLength(20).append(2);
    EXPECT_EQ(array.physicalLength(), 21);
}

TEST(AcArray, TurnsRoundAndSwaps) {
    Numbers array = numbers({1, 2, 3});
    array.reverse();
    EXPECT_EQ(array, numbers({3, 2, 1}));
    array.swap(0, 1);
    EXPECT_EQ(array, numbers({2, 3, 1}));
    EXPECT_EQ(array.first(), 2);
    EXPECT_EQ(array.last(), 1);
    array.setAll(4);
    EXPECT_EQ(array, numbers({4, 4, 4}));
    Numbers other;
    array.swap(other);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(other.length(), 3);
}

TEST(AcArray, ComparesLengthAndElements) {
    EXPECT_EQ(numbers({}), numbers({}));
    EXPECT_NE(numbers({1}), numbers({1, 2}));
    EXPECT_NE(numbers({1, 3}), numbers({1, 2}));
}

TEST(AcArray, DestroysWhatItHeld) {
    using platform_test::Movable;
    Movable::alive = 0;
    {
        AcArray<Movable> array;
        array.setLogicalLength(20);
        array[19].note = 5;
        array.setLogicalLength(40);
        EXPECT_EQ(array[19].note, 5);
        EXPECT_EQ(Movable::alive, 40);
        array.removeAt(0);
        EXPECT_EQ(array[18].note, 5);
        EXPECT_EQ(Movable::alive, 39);
        array.removeAll();
        EXPECT_EQ(Movable::alive, 0);
        EXPECT_GE(array.physicalLength(), 40);
        array.setLogicalLength(1);
    }
    EXPECT_EQ(Movable::alive, 0);
}

} // namespace
