// A list of pipes, and what of it is counted once.

#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace module_tests {
namespace {

constexpr int kKeepAll = 0;
constexpr int kOnce = 1;

class CollideSegsTest : public DrawingTest {
protected:
    int collect(const Ids& pipes, int removeDuplicates) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& pipe : pipes) {
            list.append(pipe);
        }
        return GetSegsForCollideTest(segs, list, removeDuplicates);
    }

    /// Pipes of the entries, of that record which the kind fills.
    std::vector<Ids> pipesOfEntries() {
        std::vector<Ids> entries;
        for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
            const Seg& seg = segs.GetAt(i);
            entries.push_back(idsOf(seg.kind == 1 ? seg.gravity.pipeIds : seg.pressure.pipeIds));
        }
        return entries;
    }

    std::vector<int> kinds() {
        std::vector<int> list;
        for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
            list.push_back(segs.GetAt(i).kind);
        }
        return list;
    }

    /// Two pipes end to end, drawn towards one another, between wells at `x` and `x` + 100; the
    /// second well only where it is asked for.
    ///
    ///   o----left--->|<---right---o
    void drawStretch(double x, bool secondWell = true) {
        drawing.addWell({x, 0, 0});
        left = drawing.addPipe({x, 0, 0}, {x + 50, 0, 0});
        right = drawing.addPipe({x + 100, 0, 0}, {x + 50, 0, 0});
        if (secondWell) {
            drawing.addWell({x + 100, 0, 0});
        }
    }

    AcDbObjectId addAside(const wchar_t* system, double y = 500.0) {
        return drawing.addPipe({0, y, 0}, {50, y, 0}, {.system = system, .diameter = L"80"});
    }

    CArray<Seg, Seg&> segs;
    AcDbObjectId left;
    AcDbObjectId right;
};

using Entries = std::vector<Ids>;

TEST_F(CollideSegsTest, EmptyListGivesZeroAndLeavesTheSegments) {
    Seg before;
    before.kind = 5;
    segs.Add(before);
    EXPECT_EQ(collect({}, kKeepAll), 0);
    EXPECT_EQ(collect({}, kOnce), 0);
    EXPECT_EQ(kinds(), std::vector<int>{5});
}

TEST_F(CollideSegsTest, SinglePipeGivesOneInBothModes) {
    drawStretch(0);
    EXPECT_EQ(collect({left}, kKeepAll), 1);
    EXPECT_EQ(collect({left}, kOnce), 1);
    EXPECT_EQ(segs.GetSize(), 1) << "the second call's entry repeats the first call's";
}

TEST_F(CollideSegsTest, KeepingAllGivesOneEntryAPipeInOrder) {
    drawStretch(0);
    const AcDbObjectId main = addAside(kSupply);
    EXPECT_EQ(collect({main, right, left, right, main}, kKeepAll), 1);
    EXPECT_EQ(kinds(), (std::vector<int>{0, 1, 1, 1, 0}));
    // A stretch reads from the well at the start of the pipe that was asked for.
    EXPECT_EQ(pipesOfEntries(),
              (Entries{{main}, {right, left}, {left, right}, {right, left}, {main}}));
}

TEST_F(CollideSegsTest, StretchBetweenTwoWellsCountsOnceAsThatOfThePipeListedFirst) {
    drawStretch(0);
    EXPECT_EQ(collect({right, left}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{right, left}}));
    segs.RemoveAll();
    EXPECT_EQ(collect({left, right}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{left, right}}));
}

TEST_F(CollideSegsTest, StretchWithAWellAtOneEndIsNeverRemoved) {
    drawStretch(0, false);
    for (const int mode : {kKeepAll, kOnce}) {
        segs.RemoveAll();
        EXPECT_EQ(collect({left, right}, mode), 1);
        EXPECT_EQ(pipesOfEntries(), (Entries{{left}, {right}}));
    }
    // Nor when the very same pipe is asked for again.
    EXPECT_EQ(collect({left, left}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{left}, {right}, {left}, {left}}));
}

TEST_F(CollideSegsTest, PressurePipesAreNeverRemoved) {
    const AcDbObjectId main = addAside(kSupply);
    for (const int mode : {kKeepAll, kOnce}) {
        segs.RemoveAll();
        EXPECT_EQ(collect({main, main}, mode), 1);
        EXPECT_EQ(pipesOfEntries(), (Entries{{main}, {main}}));
        EXPECT_EQ(kinds(), (std::vector<int>{0, 0}));
    }
}

TEST_F(CollideSegsTest, TheListOfPipesMayBeThatOfAnEntry) {
    drawStretch(0);
    ASSERT_EQ(collect({left}, kKeepAll), 1);
    EXPECT_EQ(GetSegsForCollideTest(segs, segs.GetAt(0).gravity.pipeIds, kKeepAll), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{left, right}, {left, right}, {right, left}}));
}

TEST_F(CollideSegsTest, UnknownSystemGivesAnEntryWithThePipesOwnValues) {
    const AcDbObjectId gas = addAside(L"燃气");
    EXPECT_EQ(collect({gas, gas}, kOnce), 1);
    EXPECT_EQ(kinds(), (std::vector<int>{-1, -1}));
    EXPECT_EQ(pipesOfEntries(), (Entries{{gas}, {gas}}));
    EXPECT_EQ(segs.GetAt(0).pressure.diameter, 80);
    EXPECT_EQ(utf8(segs.GetAt(0).pressure.systemName), "燃气");
    EXPECT_EQ(segs.GetAt(0).gravity.pipeIds.length(), 0);
}

TEST_F(CollideSegsTest, EntityWithoutASystemGivesAnEntryToo) {
    EXPECT_EQ(collect({AcDbObjectId()}, kKeepAll), 1);
    EXPECT_EQ(kinds(), std::vector<int>{-1});
    EXPECT_EQ(pipesOfEntries(), (Entries{{AcDbObjectId()}}));
}

TEST_F(CollideSegsTest, ThreeEqualEntriesInARowCollapseToOne) {
    drawStretch(0);
    EXPECT_EQ(collect({left, right, left}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{left, right}}));
}

TEST_F(CollideSegsTest, OrderOfTheOthersStays) {
    drawStretch(0);
    const AcDbObjectId a1 = left;
    const AcDbObjectId a2 = right;
    drawStretch(1000);
    const AcDbObjectId b1 = left;
    const AcDbObjectId b2 = right;
    const AcDbObjectId main = addAside(kSupply);
    EXPECT_EQ(collect({b1, main, a2, b2, b2, main, a1, b1, main}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{b1, b2}, {main}, {a2, a1}, {main}, {main}}));
}

TEST_F(CollideSegsTest, BuildThatFailedKeepsItsPlaceAndIsNeverRemoved) {
    drawStretch(0);
    const AcDbObjectId lonely = addAside(kSewer);
    // Not longer than one unit, so no pipe at all.
    const AcDbObjectId tooShort = drawing.addPipe({0, 800, 0}, {1, 800, 0});
    EXPECT_EQ(collect({tooShort, lonely, tooShort, left, lonely}, kOnce), 1);
    EXPECT_EQ(kinds(), (std::vector<int>{1, 1, 1, 1, 1}));
    EXPECT_EQ(pipesOfEntries(), (Entries{{}, {lonely}, {}, {left, right}, {lonely}}));
}

TEST_F(CollideSegsTest, WhatStoodInTheListBeforeTakesPartInTheRemoval) {
    drawStretch(0);
    EXPECT_EQ(collect({left, right}, kKeepAll), 1);
    const AcDbObjectId main = addAside(kSupply);
    EXPECT_EQ(collect({right, main}, kOnce), 1);
    EXPECT_EQ(pipesOfEntries(), (Entries{{left, right}, {main}}));
}

/// An entry made by hand, so that one condition at a time can be missing.
Seg& addEntry(CArray<Seg, Seg&>& segs, int kind, const std::vector<int>& pipes,
              bool withStart = true, bool withEnd = true) {
    Seg seg;
    seg.kind = kind;
    for (const int pipe : pipes) {
        seg.gravity.pipeIds.append(AcDbObjectId::fromOldId(pipe));
    }
    if (withStart) {
        seg.gravity.startEntity = AcDbObjectId::fromOldId(901);
    }
    if (withEnd) {
        seg.gravity.endEntity = AcDbObjectId::fromOldId(902);
    }
    return segs.ElementAt(segs.Add(seg));
}

TEST_F(CollideSegsTest, EachConditionOfTheRemovalCounts) {
    addEntry(segs, 1, {1, 4});
    addEntry(segs, 0, {1, 4});                      // not gravity
    addEntry(segs, -1, {1, 4});                     // of no kind
    addEntry(segs, 1, {1, 4}, false, true);         // open at the start
    addEntry(segs, 1, {1, 4}, true, false);         // open at the end
    addEntry(segs, 1, {2, 3});                      // other pipes
    addEntry(segs, 1, {1, 4, 4});                   // one of them twice
    addEntry(segs, 1, {4, 1}).gravity.diameter = 7; // the same, whatever the other fields say
    const AcDbObjectId main = addAside(kSupply);
    EXPECT_EQ(collect({main}, kOnce), 1);
    EXPECT_EQ(kinds(), (std::vector<int>{1, 0, -1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(segs.GetAt(6).gravity.pipeIds.length(), 3);
    EXPECT_EQ(idsOf(segs.GetAt(7).pressure.pipeIds), Ids{main});
}

// Runs of duplicates at the front of the tail, in its middle and at its end, worked by hand: of
// each letter the first stays.
TEST_F(CollideSegsTest, RunsOfDuplicatesGoWhereverTheyStand) {
    const std::string letters = "aaabbacccabdda";
    for (const char letter : letters) {
        addEntry(segs, 1, {letter});
    }
    const AcDbObjectId main = addAside(kSupply);
    EXPECT_EQ(collect({main}, kOnce), 1);
    std::string left;
    for (INT_PTR i = 0; i + 1 < segs.GetSize(); ++i) {
        left += static_cast<char>(segs.GetAt(i).gravity.pipeIds.at(0).asOldId());
    }
    EXPECT_EQ(left, "abcd");
    EXPECT_EQ(segs.GetAt(4).kind, 0);
}

/// What is told of each entry: its kind, which ends are closed, and its pipes in their order.
std::vector<std::string> entriesOf(const CArray<Seg, Seg&>& segs) {
    std::vector<std::string> list;
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        const Seg& seg = segs.GetAt(i);
        std::string entry = std::to_string(seg.kind) +
                            (seg.gravity.startEntity.isNull() ? '-' : 's') +
                            (seg.gravity.endEntity.isNull() ? '-' : 'e');
        for (const AcDbObjectId& pipe : idsOf(seg.gravity.pipeIds)) {
            entry += static_cast<char>(pipe.asOldId());
        }
        list.push_back(entry);
    }
    return list;
}

std::string sorted(std::string text) {
    std::sort(text.begin(), text.end());
    return text;
}

/// The plain road: each entry against each behind it, from the front.
std::vector<std::string> onceEach(std::vector<std::string> entries) {
    for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
        for (std::size_t j = i + 1; j < entries.size();) {
            const bool whole = entries[i].rfind("1se", 0) == 0 && entries[j].rfind("1se", 0) == 0;
            if (whole && sorted(entries[i]) == sorted(entries[j])) {
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(j));
            } else {
                ++j;
            }
        }
    }
    return entries;
}

TEST_F(CollideSegsTest, RemovalAgreesWithHoldingEachEntryAgainstEachBehindIt) {
    std::mt19937 random(5);
    const AcDbObjectId main = addAside(kSupply);
    std::size_t removed = 0;
    for (int round = 0; round < 200; ++round) {
        segs.RemoveAll();
        const unsigned count = 1 + random() % 25;
        for (unsigned i = 0; i < count; ++i) {
            std::vector<int> pipes(random() % 4);
            for (int& pipe : pipes) {
                pipe = 'a' + static_cast<int>(random() % 3);
            }
            const int kind = random() % 5 == 0 ? static_cast<int>(random() % 2) - 1 : 1;
            addEntry(segs, kind, pipes, random() % 8 != 0, random() % 8 != 0);
        }
        std::vector<std::string> expected = onceEach(entriesOf(segs));
        removed += count - expected.size();
        expected.emplace_back("0--"); // the pipe that the call is made for
        ASSERT_EQ(collect({main}, kOnce), 1);
        ASSERT_EQ(entriesOf(segs), expected) << "round " << round;
    }
    EXPECT_GT(removed, 200U);
}

// The length setting of a record, which no assignment copies, goes with it all the same.
TEST_F(CollideSegsTest, WhatMovesUpKeepsEveryField) {
    addEntry(segs, 1, {1});
    addEntry(segs, 1, {1});
    Seg& last = addEntry(segs, 0, {2});
    last.pressure.lengthMode = 4;
    last.pressure.diameter = 80;
    last.gravity.extraValue4 = 0.25;
    EXPECT_EQ(collect({addAside(kSupply)}, kOnce), 1);
    ASSERT_EQ(segs.GetSize(), 3);
    EXPECT_EQ(segs.GetAt(1).kind, 0);
    EXPECT_EQ(segs.GetAt(1).pressure.lengthMode, 4);
    EXPECT_EQ(segs.GetAt(1).pressure.diameter, 80);
    EXPECT_EQ(segs.GetAt(1).gravity.extraValue4, 0.25);
    EXPECT_EQ(idsOf(segs.GetAt(1).gravity.pipeIds), Ids{AcDbObjectId::fromOldId(2)});
    EXPECT_EQ(segs.GetAt(2).pressure.lengthMode, 0); // the drawing's setting
}

TEST_F(CollideSegsTest, AnyNumberButZeroAsksForRemoval) {
    drawStretch(0);
    EXPECT_EQ(collect({left, left}, -1), 1);
    EXPECT_EQ(segs.GetSize(), 1);
}

} // namespace
} // namespace module_tests
