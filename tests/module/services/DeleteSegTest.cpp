// A segment and its end well leave a network in memory.

#include "TKVltSearchModule18.h"

#include "module/services/MemoryNetwork.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

using Ints = std::vector<int>;

/// Wells by number, segments by the number in brackets:
///
///   0 --(0)-- 1 --(1)-- 2 --(2)-- 3
///             |         |
///             |         +--(3)-- 4 --(4)-- 5
///             +--(5)-- 6
class DeleteSegTest : public DrawingTest {
protected:
    DeleteSegTest() { fillNetwork(network, 7, {{0, 1}, {1, 2}, {2, 3}, {2, 4}, {4, 5}, {1, 6}}); }

    int remove(int segment) {
        GravitySearchObject* object = &network;
        const int result = DeleteSeg(object, segment);
        EXPECT_EQ(object, &network);
        return result;
    }

    static void add(CArray<int, int>& list, const Ints& numbers) {
        for (const int number : numbers) {
            list.Add(number);
        }
    }

    Ints outSegs(int well) const { return intsOf(network.wells.GetAt(well).outSegs); }
    Ids wells() const {
        Ids names;
        for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
            names.push_back(network.wells.GetAt(i).nodeEntity);
        }
        return names;
    }
    Ids segs() const {
        Ids names;
        for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
            names.push_back(network.segs.GetAt(i).pipeIds.at(0));
        }
        return names;
    }
    /// Start and end well of each segment.
    std::vector<std::pair<int, int>> links() const {
        std::vector<std::pair<int, int>> list;
        for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
            list.emplace_back(network.segs.GetAt(i).startWell, network.segs.GetAt(i).endWell);
        }
        return list;
    }
    Ints inSegs() const {
        Ints list;
        for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
            list.push_back(network.wells.GetAt(i).inSeg);
        }
        return list;
    }

    void expectUntouched() const {
        EXPECT_EQ(network.wells.GetSize(), 7);
        EXPECT_EQ(links(), (Links{{0, 1}, {1, 2}, {2, 3}, {2, 4}, {4, 5}, {1, 6}}));
        EXPECT_EQ(inSegs(), (Ints{-1, 0, 1, 2, 3, 4, 5}));
        EXPECT_EQ(outSegs(1), (Ints{1, 5}));
    }

    using Links = std::vector<std::pair<int, int>>;
    GravitySearchObject network;
};

TEST_F(DeleteSegTest, NullNetworkGivesZero) {
    GravitySearchObject* none = nullptr;
    EXPECT_EQ(DeleteSeg(none, 0), 0);
    EXPECT_EQ(none, nullptr);
}

TEST_F(DeleteSegTest, NegativeIndexGivesZeroAndChangesNothing) {
    EXPECT_EQ(remove(-1), 0);
    expectUntouched();
}

TEST_F(DeleteSegTest, IndexAtOrBeyondTheEndThrows) {
    EXPECT_THROW(remove(6), CInvalidArgException);
    EXPECT_THROW(remove(100), CInvalidArgException);
    expectUntouched();
}

TEST_F(DeleteSegTest, LeafTakesItsWellAndItsPlaceAmongTheChildren) {
    EXPECT_EQ(remove(2), 1);
    EXPECT_EQ(wells(),
              (Ids{wellName(0), wellName(1), wellName(2), wellName(4), wellName(5), wellName(6)}));
    EXPECT_EQ(segs(), (Ids{segName(0), segName(1), segName(3), segName(4), segName(5)}));
    // Wells 4, 5, 6 are 3, 4, 5 now; segments 3, 4, 5 are 2, 3, 4.
    EXPECT_EQ(links(), (Links{{0, 1}, {1, 2}, {2, 3}, {3, 4}, {1, 5}}));
    EXPECT_EQ(outSegs(2), Ints{2});
    EXPECT_EQ(outSegs(1), (Ints{1, 4}));
    EXPECT_EQ(inSegs(), (Ints{-1, 0, 1, 2, 3, 4}));
}

TEST_F(DeleteSegTest, ChildrenOfTheEndWellComeBehindTheOthersInTheirOrder) {
    network.segs[2].length = 12.5;
    network.segs[2].startElevation = 3.0;
    network.segs[2].endElevation = 4.0;
    EXPECT_EQ(remove(1), 1);
    // Well 1 had segments 1 and 5, and gained 2 and 3 behind them; the numbers behind 1 closed up.
    EXPECT_EQ(outSegs(1), (Ints{4, 1, 2}));
    EXPECT_EQ(links(), (Links{{0, 1}, {1, 2}, {1, 3}, {3, 4}, {1, 5}}));
    EXPECT_EQ(inSegs(), (Ints{-1, 0, 1, 2, 3, 4}));
    for (const int gained : {1, 2}) {
        EXPECT_EQ(network.segs[gained].startEntity, wellName(1));
        EXPECT_TRUE(samePoint(network.segs[gained].startPoint, wellPlace(1), 0.0));
    }
    // Nothing else of them changes, though they now reach back across what was removed.
    EXPECT_EQ(segs()[1], segName(2));
    EXPECT_EQ(network.segs[1].endEntity, wellName(3));
    EXPECT_TRUE(samePoint(network.segs[1].endPoint, wellPlace(3), 0.0));
    EXPECT_EQ(network.segs[1].length, 12.5);
    EXPECT_EQ(network.segs[1].startElevation, 3.0);
    EXPECT_EQ(network.segs[1].endElevation, 4.0);
}

// The start that is handed on is that of the segment, also where the well says otherwise.
TEST_F(DeleteSegTest, ChildrenTakeTheStartOfTheRemovedSegment) {
    network.segs[1].startEntity = wellName(77);
    network.segs[1].startPoint = {1, 2, 3};
    EXPECT_EQ(remove(1), 1);
    EXPECT_EQ(network.segs[1].startEntity, wellName(77));
    EXPECT_TRUE(samePoint(network.segs[1].startPoint, {1, 2, 3}, 0.0));
}

TEST_F(DeleteSegTest, SegmentZeroMovesEveryOtherSegmentIndexDownByOne) {
    add(network.pathSegs, {4, 3, 1, 0});
    add(network.pathWells, {5, 4, 2, 1, 0});
    EXPECT_EQ(remove(0), 1);
    EXPECT_EQ(segs(), (Ids{segName(1), segName(2), segName(3), segName(4), segName(5)}));
    EXPECT_EQ(outSegs(0), (Ints{0, 4}));
    EXPECT_EQ(outSegs(1), (Ints{1, 2}));
    EXPECT_EQ(outSegs(3), Ints{3});
    EXPECT_EQ(inSegs(), (Ints{-1, 0, 1, 2, 3, 4}));
    EXPECT_EQ(intsOf(network.pathSegs), (Ints{3, 2, 0}));
}

TEST_F(DeleteSegTest, PathSkipsTheRemovedPairAndStillReadsToTheRoot) {
    add(network.pathSegs, {4, 3, 1, 0});
    add(network.pathWells, {5, 4, 2, 1, 0});
    EXPECT_EQ(remove(1), 1); // with well 2
    EXPECT_EQ(intsOf(network.pathSegs), (Ints{3, 2, 0}));
    EXPECT_EQ(intsOf(network.pathWells), (Ints{4, 3, 1, 0}));
    for (std::size_t k = 0; k < 3; ++k) {
        const GravitySeg& seg = network.segs[intsOf(network.pathSegs)[k]];
        EXPECT_EQ(seg.endWell, intsOf(network.pathWells)[k]);
        EXPECT_EQ(seg.startWell, intsOf(network.pathWells)[k + 1]);
    }
}

TEST_F(DeleteSegTest, PathThatDoesNotPassTheRemovedPairOnlyClosesUp) {
    add(network.pathSegs, {5, 0});
    add(network.pathWells, {6, 1, 0});
    EXPECT_EQ(remove(2), 1); // with well 3
    EXPECT_EQ(intsOf(network.pathSegs), (Ints{4, 0}));
    EXPECT_EQ(intsOf(network.pathWells), (Ints{5, 1, 0}));
}

TEST_F(DeleteSegTest, RepeatedEntriesAllLeaveThePath) {
    add(network.pathSegs, {1, 1, 0, 1, 0});
    add(network.pathWells, {2, 2, 1, 0, 2});
    EXPECT_EQ(remove(1), 1);
    EXPECT_EQ(intsOf(network.pathSegs), (Ints{0, 0}));
    EXPECT_EQ(intsOf(network.pathWells), (Ints{1, 0}));
}

TEST_F(DeleteSegTest, RootFollowsWhenAWellBeforeItIsRemoved) {
    network.rootWell = 4;
    EXPECT_EQ(remove(2), 1); // well 3
    EXPECT_EQ(network.rootWell, 3);
}

TEST_F(DeleteSegTest, RootStaysWhenALaterWellIsRemoved) {
    network.rootWell = 2;
    EXPECT_EQ(remove(2), 1); // well 3
    EXPECT_EQ(network.rootWell, 2);
}

TEST_F(DeleteSegTest, RemovedRootIsReplacedByTheStartWell) {
    network.rootWell = 4;
    EXPECT_EQ(remove(3), 1); // from well 2 to well 4
    EXPECT_EQ(network.rootWell, 2);
}

// The start well stands behind the removed one and moves down to 1, while the root is given the
// place that it had.
TEST_F(DeleteSegTest, RemovedRootGetsTheOldIndexOfAStartWellBehindIt) {
    GravitySearchObject other;
    fillNetwork(other, 4, {{0, 2}, {2, 1}, {2, 3}});
    other.rootWell = 1;
    GravitySearchObject* object = &other;
    EXPECT_EQ(DeleteSeg(object, 1), 1);
    EXPECT_EQ(other.rootWell, 2);
    EXPECT_EQ(other.wells[1].nodeEntity, wellName(2));
    EXPECT_EQ(other.segs[0].endWell, 1);
    EXPECT_EQ(other.segs[1].startWell, 1);
    EXPECT_EQ(other.segs[1].endWell, 2);
    EXPECT_EQ(intsOf(other.wells[1].outSegs), Ints{1});
}

TEST_F(DeleteSegTest, UnsetRootStaysUnset) {
    network.rootWell = -1;
    EXPECT_EQ(remove(0), 1);
    EXPECT_EQ(network.rootWell, -1);
}

// In a network that is no tree: references to what goes, where no tree has one, move down with
// those behind. Of a segment that stands twice in a row the scan passes over the second.
TEST_F(DeleteSegTest, StrayReferencesToWhatIsRemovedMoveDownToo) {
    network.wells[1].outSegs.InsertAt(0, 1); // 1 1 5
    network.wells[6].inSeg = 1;
    network.wells[6].outSegs.Add(1);
    network.segs[4].startWell = 2;
    network.segs[5].endWell = 2;
    EXPECT_EQ(remove(1), 1); // with well 2
    EXPECT_EQ(outSegs(1), (Ints{0, 4, 1, 2}));
    EXPECT_EQ(inSegs(), (Ints{-1, 0, 1, 2, 3, 0}));
    EXPECT_EQ(outSegs(5), Ints{0});
    EXPECT_EQ(links(), (Links{{0, 1}, {1, 2}, {1, 3}, {1, 4}, {1, 1}}));
}

TEST_F(DeleteSegTest, MergedEntitiesOfTheWellsThatStayAreKept) {
    network.wells[6].mergedEntities.append(wellName(50));
    EXPECT_EQ(remove(0), 1);
    EXPECT_EQ(idsOf(network.wells[5].mergedEntities), Ids{wellName(50)});
}

TEST_F(DeleteSegTest, LastSegmentLeavesTheRootAlone) {
    for (int left = 6; left > 0; --left) {
        EXPECT_EQ(remove(left - 1), 1);
        EXPECT_EQ(network.wells.GetSize(), left);
        EXPECT_EQ(network.segs.GetSize(), left - 1);
    }
    EXPECT_EQ(wells(), Ids{wellName(0)});
    EXPECT_EQ(outSegs(0), Ints{});
    EXPECT_EQ(network.rootWell, 0);
}

} // namespace
} // namespace module_tests
