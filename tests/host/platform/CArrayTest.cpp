#include "platform/CArray.h"

#include "Movable.h"
#include "platform/CString.h"
#include "platform/CStringArray.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <stdexcept>

namespace {

using platform_test::Movable;
using Numbers = CArray<int, int>;
using Movables = CArray<Movable, Movable&>;

void fill(Numbers& array, std::initializer_list<int> values) {
    for (const int value : values) {
        array.Add(value);
    }
}

void expectNumbers(const Numbers& array, std::initializer_list<int> expected) {
    ASSERT_EQ(array.GetSize(), static_cast<INT_PTR>(expected.size()));
    INT_PTR index = 0;
    for (const int value : expected) {
        EXPECT_EQ(array[index], value) << "at " << index;
        ++index;
    }
}

TEST(CArray, StartsEmpty) {
    const Numbers array;
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(CArray, AddGivesTheIndexAndKeepsOrder) {
    Numbers array;
    EXPECT_EQ(array.Add(7), 0);
    EXPECT_EQ(array.Add(8), 1);
    expectNumbers(array, {7, 8});
    EXPECT_EQ(array.GetUpperBound(), 1);
}

TEST(CArray, EveryBadIndexThrowsAndChangesNothing) {
    Numbers array;
    fill(array, {1, 2});
    const Numbers& constant = array;
    for (const INT_PTR bad : {INT_PTR{-1}, INT_PTR{2}, INT_PTR{1000}}) {
        EXPECT_THROW(array[bad] = 0, CInvalidArgException);
        EXPECT_THROW(array.GetAt(bad), CInvalidArgException);
        EXPECT_THROW(constant.GetAt(bad), CInvalidArgException);
        EXPECT_THROW(constant.ElementAt(bad), CInvalidArgException);
        EXPECT_THROW(array.SetAt(bad, 5), CInvalidArgException);
    }
    EXPECT_THROW(array.SetAtGrow(-1, 5), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(-1, 5), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, 5, 0), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1, 2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    expectNumbers(array, {1, 2});
}

TEST(CArray, ABadIndexCanBeCaughtAsStandardException) {
    Numbers array;
    EXPECT_THROW(array.GetAt(0), std::exception);
    EXPECT_THROW(array.GetAt(0), CException);
}

TEST(CArray, SetSizeMakesDefaultElementsAndDropsSurplus) {
    Numbers array;
    fill(array, {1, 2, 3});
    array.SetSize(5);
    expectNumbers(array, {1, 2, 3, 0, 0});
    array.SetSize(1);
    expectNumbers(array, {1});
}

TEST(CArray, SizeZeroFreesTheStorage) {
    Numbers array;
    fill(array, {1, 2, 3});
    array.SetSize(0, -1);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(CArray, GrowingKeepsAllElements) {
    Numbers array;
    for (int i = 0; i < 100'000; ++i) {
        array.Add(i);
    }
    ASSERT_EQ(array.GetSize(), 100'000);
    for (int i = 0; i < 100'000; ++i) {
        ASSERT_EQ(array[i], i);
    }
}

TEST(CArray, InsertAtMovesTheRestUp) {
    Numbers array;
    fill(array, {1, 2, 3});
    array.InsertAt(1, 9, 2);
    expectNumbers(array, {1, 9, 9, 2, 3});
    array.InsertAt(5, 4);
    expectNumbers(array, {1, 9, 9, 2, 3, 4});
}

TEST(CArray, InsertAtBeyondTheEndGrowsUpToThere) {
    Numbers array;
    fill(array, {1});
    array.InsertAt(3, 7);
    expectNumbers(array, {1, 0, 0, 7});
}

TEST(CArray, InsertAtTakesAnotherArray) {
    Numbers array;
    fill(array, {1, 2});
    Numbers other;
    fill(other, {8, 9});
    array.InsertAt(1, &other);
    expectNumbers(array, {1, 8, 9, 2});
    EXPECT_THROW(array.InsertAt(0, &array), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, static_cast<const Numbers*>(nullptr)), CInvalidArgException);
}

TEST(CArray, AValueFromTheArrayItselfSurvivesGrowth) {
    CArray<CString, const CString&> array;
    array.Add(CString(L"first"));
    for (int i = 0; i < 50; ++i) {
        array.Add(array[0]);
    }
    EXPECT_EQ(array[50], L"first");
    array.SetAt(1, CString(L"second"));
    array.InsertAt(0, array[1]);
    EXPECT_EQ(array[0], L"second");
    EXPECT_EQ(array[1], L"first");
    EXPECT_EQ(array[2], L"second");
}

TEST(CArray, RemoveAtKeepsOrder) {
    Numbers array;
    fill(array, {1, 2, 3, 4, 5});
    array.RemoveAt(1, 2);
    expectNumbers(array, {1, 4, 5});
    array.RemoveAt(2);
    expectNumbers(array, {1, 4});
    array.RemoveAt(1, 0);
    expectNumbers(array, {1, 4});
    array.RemoveAll();
    expectNumbers(array, {});
}

TEST(CArray, CopyAndAppendAreElementByElement) {
    Numbers source;
    fill(source, {1, 2});
    Numbers array;
    fill(array, {9, 9, 9});
    array.Copy(source);
    expectNumbers(array, {1, 2});
    EXPECT_EQ(array.Append(source), 2);
    expectNumbers(array, {1, 2, 1, 2});
    array.Copy(array);
    expectNumbers(array, {1, 2, 1, 2});
    EXPECT_THROW(array.Append(array), CInvalidArgException);
    source[0] = 5;
    EXPECT_EQ(array[0], 1);
}

TEST(CArray, SetAtGrowFillsTheGap) {
    Numbers array;
    array.SetAtGrow(2, 6);
    expectNumbers(array, {0, 0, 6});
    array.SetAtGrow(0, 4);
    expectNumbers(array, {4, 0, 6});
}

TEST(CArray, TakesTypesThatCopyFromANonConstReference) {
    Movable::alive = 0;
    {
        Movables array;
        Movable first(1);
        first.note = 11;
        array.Add(first);
        EXPECT_EQ(array[0].value, 1);
        EXPECT_EQ(array[0].note, 0) << "what assignment leaves out must not arrive";
        Movables copy;
        copy.Copy(array);
        EXPECT_EQ(copy[0].value, 1);
        EXPECT_EQ(Movable::alive, 3);
    }
    EXPECT_EQ(Movable::alive, 0);
}

TEST(CArray, MovingStorageKeepsWhatACopyWouldDrop) {
    Movable::alive = 0;
    {
        Movables array;
        Movable value(1);
        array.Add(value);
        array[0].note = 42;
        for (int i = 0; i < 5000; ++i) {
            array.Add(value);
        }
        EXPECT_EQ(array[0].note, 42);
        array.InsertAt(0, value);
        EXPECT_EQ(array[1].note, 42);
        array.RemoveAt(0);
        EXPECT_EQ(array[0].note, 42);
        array.FreeExtra();
        EXPECT_EQ(array[0].note, 42);
        EXPECT_EQ(Movable::alive, 5002);
    }
    EXPECT_EQ(Movable::alive, 0);
}

TEST(CArray, HoldsArraysWithinElements) {
    struct Node {
        CArray<int, int> links;
        CString name;
        Node() = default;
        Node(const Node&) = delete;
        Node& operator=(const Node& other) {
            links.Copy(other.links);
            name = other.name;
            return *this;
        }
    };
    CArray<Node, Node&> nodes;
    Node node;
    node.name = L"a name longer than any small buffer";
    node.links.Add(3);
    for (int i = 0; i < 100; ++i) {
        nodes.Add(node);
    }
    nodes[0].links.Add(4);
    EXPECT_EQ(nodes[99].name, node.name);
    EXPECT_EQ(nodes[99].links.GetSize(), 1);
    EXPECT_EQ(nodes[0].links[1], 4);
}

struct Bomb {
    Bomb() {
        if (--fuse < 0) {
            throw std::runtime_error("no more");
        }
        ++alive;
    }
    Bomb(const Bomb&) = default;
    Bomb& operator=(const Bomb&) = default;
    ~Bomb() { --alive; }
    int value = 0;
    static inline int fuse = 0;
    static inline int alive = 0;
};

TEST(CArray, AThrowingConstructorLeavesTheArrayAsItWas) {
    Bomb::fuse = 3;
    {
        CArray<Bomb> array;
        array.SetSize(2);
        array[0].value = 1;
        array[1].value = 2;
        EXPECT_THROW(array.SetSize(5), std::runtime_error);
        EXPECT_EQ(array.GetSize(), 2);
        Bomb::fuse = 1;
        const Bomb extra;
        EXPECT_THROW(array.InsertAt(0, extra), std::runtime_error);
        EXPECT_EQ(array.GetSize(), 2);
        EXPECT_EQ(array[0].value, 1);
        EXPECT_EQ(array[1].value, 2);
    }
    EXPECT_EQ(Bomb::alive, 0);
}

TEST(CArray, StorageThatCannotBeHadThrows) {
    CArray<double, double> array;
    EXPECT_THROW(array.SetSize(std::numeric_limits<INT_PTR>::max()), CMemoryException);
    EXPECT_EQ(array.GetSize(), 0);
    array.Add(1.5);
    constexpr INT_PTR oneTooMany = INT_PTR{1} << 32;
    EXPECT_THROW(array.SetSize(oneTooMany), CMemoryException);
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array[0], 1.5);
}

TEST(CArray, ElementsAreAligned) {
    CArray<long double, long double> array;
    array.Add(1.0L);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array.GetData()) % alignof(std::max_align_t), 0U);
}

TEST(CStringArray, HoldsTexts) {
    CStringArray array;
    EXPECT_EQ(array.Add(L"one"), 0);
    array.Add(CString(L"two"));
    array.InsertAt(0, L"zero");
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[0], L"zero");
    EXPECT_EQ(array.GetAt(2), L"two");
    array.RemoveAt(0);
    EXPECT_EQ(array[0], L"one");
    EXPECT_THROW(array.GetAt(2), CInvalidArgException);
}

} // namespace
