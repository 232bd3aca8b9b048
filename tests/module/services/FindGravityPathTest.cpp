// The way from a well or pipe to the root of a network that has been built.

#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <memory>

namespace module_tests {
namespace {

using Ints = std::vector<int>;

/// The search from A numbers wells A B C D E 0 1 2 3 4 and segments P Q R S 0 1 2 3; the segment
/// between C and D is drawn as two pipes.
///
///   A o---P---o B ---Q---o C ---R1--R2---o D
///     0       40         80              140
///             |
///             S
///             |
///             o E  -40
class FindGravityPathTest : public DrawingTest {
protected:
    FindGravityPathTest() {
        for (const double x : {0.0, 40.0, 80.0, 140.0}) {
            wells.push_back(drawing.addWell({x, 0, 0}));
        }
        wells.push_back(drawing.addWell({40, -40, 0}));
        p = drawing.addPipe({0.5, 0, 0}, {39.5, 0, 0});
        q = drawing.addPipe({40.5, 0, 0}, {79.5, 0, 0});
        r1 = drawing.addPipe({80.5, 0, 0}, {110, 0, 0});
        r2 = drawing.addPipe({110, 0, 0}, {139.5, 0, 0});
        s = drawing.addPipe({40, -0.5, 0}, {40, -39.5, 0});
    }

    void search(AcDbObjectId start) {
        SearchObject* object = nullptr;
        AcDbObjectId noEnd;
        ASSERT_EQ(GetSearchInformation(object, start, noEnd, AcGePoint3d()), 1);
        owner.reset(object);
        network = static_cast<GravitySearchObject*>(object);
    }

    int find(AcDbObjectId target) { return FindGravityPath(network, target); }

    void expectPath(const Ints& pathWells, const Ints& pathSegs) {
        EXPECT_EQ(intsOf(network->pathWells), pathWells);
        EXPECT_EQ(intsOf(network->pathSegs), pathSegs);
    }

    void expectRefused(AcDbObjectId target) {
        EXPECT_EQ(find(target), 0);
        expectPath({}, {});
    }

    Ids wells;
    AcDbObjectId p;
    AcDbObjectId q;
    AcDbObjectId r1;
    AcDbObjectId r2;
    AcDbObjectId s;
    std::unique_ptr<SearchObject> owner;
    GravitySearchObject* network = nullptr;
};

TEST_F(FindGravityPathTest, WellGivesThePathFromItselfToTheRoot) {
    search(wells[0]);
    EXPECT_EQ(find(wells[3]), 1);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
}

TEST_F(FindGravityPathTest, WellOnABranchLeavesTheOtherBranchOut) {
    search(wells[0]);
    EXPECT_EQ(find(wells[4]), 1);
    expectPath({4, 1, 0}, {3, 0});
}

TEST_F(FindGravityPathTest, PipeBeginsWithItsOwnSegment) {
    search(wells[0]);
    EXPECT_EQ(find(r2), 1);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
}

TEST_F(FindGravityPathTest, FirstSegmentThatHoldsThePipeCounts) {
    search(wells[0]);
    network->segs[2].pipeIds.append(s);
    EXPECT_EQ(find(s), 1);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
}

TEST_F(FindGravityPathTest, EntriesOfThePathJoin) {
    search(wells[2]); // from C the numbers are others
    EXPECT_EQ(find(wells[4]), 1);
    const Ints nodes = intsOf(network->pathWells);
    const Ints segs = intsOf(network->pathSegs);
    ASSERT_EQ(nodes.size(), segs.size() + 1);
    EXPECT_EQ(network->wells[nodes.front()].nodeEntity, wells[4]);
    EXPECT_EQ(network->wells[nodes.back()].nodeEntity, wells[2]);
    EXPECT_EQ(nodes.back(), 0);
    for (std::size_t k = 0; k < segs.size(); ++k) {
        EXPECT_EQ(network->segs[segs[k]].endWell, nodes[k]);
        EXPECT_EQ(network->segs[segs[k]].startWell, nodes[k + 1]);
    }
}

TEST_F(FindGravityPathTest, RootIsWellZeroWhateverTheFieldSays) {
    search(wells[0]);
    network->rootWell = 2;
    EXPECT_EQ(find(wells[3]), 1);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
    EXPECT_EQ(network->rootWell, 2);
}

TEST_F(FindGravityPathTest, LoneWellGivesZeroForAnyTarget) {
    GravitySearchObject lone;
    network = &lone;
    expectRefused(wells[1]); // no well at all
    Well node;
    node.nodeEntity = wells[0];
    lone.wells.Add(node);
    GravitySeg seg; // not even a pipe that a segment holds
    seg.pipeIds.append(p);
    seg.endWell = 0;
    lone.segs.Add(seg);
    for (const AcDbObjectId& target : {wells[0], wells[1], p, AcDbObjectId()}) {
        expectRefused(target);
    }
}

// Two wells are the fewest that have a way from one to the other.
TEST_F(FindGravityPathTest, NetworkOfTwoWellsHasAPath) {
    const AcDbObjectId root = drawing.addWell({1000, 0, 0});
    const AcDbObjectId other = drawing.addWell({1040, 0, 0});
    const AcDbObjectId between = drawing.addPipe({1000.5, 0, 0}, {1039.5, 0, 0});
    search(root);
    ASSERT_EQ(network->wells.GetSize(), 2);
    EXPECT_EQ(find(other), 1);
    expectPath({1, 0}, {0});
    search(root);
    EXPECT_EQ(find(between), 1);
    expectPath({1, 0}, {0});
}

TEST_F(FindGravityPathTest, NoNetworkGivesZero) {
    EXPECT_EQ(find(wells[1]), 0);
}

TEST_F(FindGravityPathTest, RootItselfAndTheNullIdGiveZero) {
    search(wells[0]);
    expectRefused(wells[0]);
    expectRefused(AcDbObjectId());
    network->wells[2].mergedEntities.append(wells[0]); // where a search would find it
    expectRefused(wells[0]);
    EXPECT_EQ(network->wells[2].nodeEntity, wells[2]);
}

TEST_F(FindGravityPathTest, EntityOfAnotherSystemGivesZero) {
    search(wells[0]);
    const AcDbObjectId well = drawing.addWell({60, 0, 0}, {.system = kStorm});
    const AcDbObjectId pipe = drawing.addPipe({50, 0, 0}, {70, 0, 0}, {.system = kStorm});
    // Not even when the network holds them.
    network->segs[1].pipeIds.append(pipe);
    network->wells[2].mergedEntities.append(well);
    expectRefused(well);
    expectRefused(pipe);
    EXPECT_EQ(network->wells[2].nodeEntity, wells[2]);
}

TEST_F(FindGravityPathTest, EntityWithoutASystemGivesZero) {
    search(wells[0]);
    const AcDbObjectId bare = drawing.addPipe({50, 0, 0}, {70, 0, 0}, {.system = nullptr});
    network->segs[1].pipeIds.append(bare);
    expectRefused(bare);
}

TEST_F(FindGravityPathTest, WellWithAPipeSystemIsAWell) {
    search(wells[0]);
    drawing.setText(wells[2], L"管道系统", kStorm);
    EXPECT_EQ(find(wells[2]), 1);
    expectPath({2, 1, 0}, {1, 0});
}

TEST_F(FindGravityPathTest, WellWithAnEmptyWellSystemIsAskedAsAPipe) {
    search(wells[0]);
    drawing.setText(p, L"管井系统", L"");
    EXPECT_EQ(find(p), 1);
    expectPath({1, 0}, {0});
}

TEST_F(FindGravityPathTest, WellOutsideTheNetworkGivesZero) {
    search(wells[0]);
    expectRefused(drawing.addWell({500, 0, 0}));
}

TEST_F(FindGravityPathTest, PipeInNoSegmentGivesZero) {
    search(wells[0]);
    expectRefused(drawing.addPipe({500, 0, 0}, {600, 0, 0}));
}

TEST_F(FindGravityPathTest, TankIsNeverFound) {
    const AcDbObjectId tank = drawing.addTank({160, -5, 0}, {170, 5, 0});
    drawing.addPipe({140.5, 0, 0}, {160, 0, 0});
    search(wells[0]);
    ASSERT_EQ(network->wells.GetSize(), 6);
    EXPECT_EQ(network->wells[4].nodeEntity, tank);
    expectRefused(tank);
}

// A tank has no well system, which no target can share with it.
TEST_F(FindGravityPathTest, NetworkWithATankForARootFindsNothing) {
    const AcDbObjectId tank = drawing.addTank({160, -5, 0}, {170, 5, 0});
    drawing.addPipe({140.5, 0, 0}, {160, 0, 0});
    search(tank);
    expectRefused(wells[0]);
    expectRefused(p);
}

TEST_F(FindGravityPathTest, TwoCallsLeaveThePathTwice) {
    search(wells[0]);
    EXPECT_EQ(find(wells[2]), 1);
    EXPECT_EQ(find(wells[2]), 1);
    expectPath({2, 1, 0, 2, 1, 0}, {1, 0, 1, 0});
}

class MergedTargetTest : public FindGravityPathTest {
protected:
    /// Three wells merged into D before the search.
    MergedTargetTest() {
        for (const double y : {0.5, -0.5, 0.25}) {
            merged.push_back(drawing.addWell({140, y, 0}));
        }
    }

    Ids merged;
};

TEST_F(MergedTargetTest, MergedWellTakesOverAsTheNodesEntity) {
    search(wells[0]);
    ASSERT_EQ(idsOf(network->wells[3].mergedEntities), merged);
    EXPECT_EQ(find(merged[1]), 1);
    expectPath({3, 2, 1, 0}, {2, 1, 0});
    EXPECT_EQ(network->wells[3].nodeEntity, merged[1]);
    EXPECT_EQ(idsOf(network->wells[3].mergedEntities), (Ids{merged[0], merged[2], wells[3]}));
    EXPECT_EQ(network->segs[2].endEntity, wells[3]) << "only the node changes";
}

TEST_F(MergedTargetTest, FormerEntityIsFoundAmongTheMergedOnes) {
    search(wells[0]);
    EXPECT_EQ(find(merged[1]), 1);
    EXPECT_EQ(find(wells[3]), 1);
    expectPath({3, 2, 1, 0, 3, 2, 1, 0}, {2, 1, 0, 2, 1, 0});
    EXPECT_EQ(network->wells[3].nodeEntity, wells[3]);
    EXPECT_EQ(idsOf(network->wells[3].mergedEntities), (Ids{merged[0], merged[2], merged[1]}));
}

TEST_F(MergedTargetTest, WellMergedIntoTheRootIsNotFound) {
    search(wells[3]); // D is the root now
    ASSERT_EQ(idsOf(network->wells[0].mergedEntities), merged);
    expectRefused(merged[1]);
    EXPECT_EQ(network->wells[0].nodeEntity, wells[3]);
}

TEST_F(FindGravityPathTest, NodeThatNoSegmentReachesThrowsAndBothPathsHoldWhatWasPassed) {
    search(wells[0]);
    network->wells[2].inSeg = -1;
    EXPECT_THROW(find(wells[3]), CInvalidArgException);
    expectPath({3, 2}, {2, -1});
}

TEST_F(FindGravityPathTest, FindLineEntityGivesOneAndChangesNothing) {
    CArray<PressureSeg, PressureSeg&> segs;
    EXPECT_EQ(FindLineEntity(segs, CString()), 1);
    EXPECT_EQ(segs.GetSize(), 0);
    PressureSeg seg;
    seg.pipeIds.append(p);
    seg.diameter = 80;
    segs.Add(seg);
    EXPECT_EQ(FindLineEntity(segs, CString(L"x")), 1);
    ASSERT_EQ(segs.GetSize(), 1);
    EXPECT_EQ(idsOf(segs[0].pipeIds), Ids{p});
    EXPECT_EQ(segs[0].diameter, 80);
}

} // namespace
} // namespace module_tests
