// Which pipes touch a node, and where a walk goes from there.

#include "module/walk/WalkTest.h"

#include <cmath>
#include <tuple>

namespace module_tests {

/// The node at the origin has radius 1, so a pipe touches it up to 2 x 1 + 0.01 away. Pipes lead
/// to a well of radius 0.5.
class TouchTest : public WalkTest {
protected:
    TouchTest() { root = drawing.addWell({0, 0, 0}, {.diameter = L"2"}); }

    /// The far well, half a unit beyond `pipeEnd` along the X axis.
    AcDbObjectId wellBeyond(double pipeEnd) { return drawing.addWell({pipeEnd + 0.5, 0, 0}); }

    int walkFrom(AcDbObjectId start) {
        prepare(start);
        EXPECT_EQ(search->PlaceRootWell(), 1);
        return search->WalkFromWell(0);
    }

    AcDbObjectId root;
};

TEST_F(TouchTest, PipeTouchesUpToADiameterAndTheGap) {
    drawing.addPipe({2.01, 0, 0}, {20, 0, 0});
    const AcDbObjectId far = wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), (Ids{root, far}));
}

TEST_F(TouchTest, PipeFartherThanThatDoesNot) {
    drawing.addPipe({2.0101, 0, 0}, {20, 0, 0});
    wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), Ids{root});
}

TEST_F(TouchTest, DistanceIsInSpace) {
    drawing.addPipe({2, 0, 2}, {20, 0, 0});
    wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), Ids{root});
}

// The tank's point is its middle, farther from either pipe than any well reaches.
TEST_F(TouchTest, PipeBackToTheTankThatTheWalkBeganAtIsToldToWhoAsks) {
    const AcDbObjectId tank = drawing.addTank({90, 90, 0}, {110, 110, 0});
    const AcDbObjectId out = drawing.addPipe({110, 100, 0}, {150, 100, 0});
    const AcDbObjectId back = drawing.addPipe({150, 100.25, 0}, {110, 105, 0});
    const AcDbObjectId far = drawing.addWell({150, 100, 0});
    prepare(tank);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    std::vector<tkvlt::ClosedChain> closed;
    search->closedChains = &closed;
    const int backIndex = pipe(back);
    search->WalkFromWell(0);
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_EQ(nodes(), (Ids{tank, far}));
    EXPECT_EQ(pipe(out), -1) << "the way there is a segment";
    ASSERT_EQ(closed.size(), 1U);
    EXPECT_EQ(closed[0].pipes, std::vector<int>{backIndex});
    EXPECT_EQ(closed[0].node, 0);
    EXPECT_TRUE(samePoint(closed[0].freeEnd, {100, 100, 0}));
}

TEST_F(TouchTest, SquareNodeIsTouchedAtItsCorner) {
    const AcDbObjectId square = drawing.addWell({0, 50, 0}, {.diameter = L"2", .square = true});
    drawing.addPipe({2.8379, 50, 0}, {20, 50, 0}); // 2 x 1 x 1.414 + 0.01 = 2.838
    const AcDbObjectId far = drawing.addWell({20.5, 50, 0});
    EXPECT_EQ(walkFrom(square), 1);
    EXPECT_EQ(nodes(), (Ids{square, far}));
}

TEST_F(TouchTest, SquareNodeIsNotTouchedBeyondItsCorner) {
    const AcDbObjectId square = drawing.addWell({0, 50, 0}, {.diameter = L"2", .square = true});
    drawing.addPipe({2.8381, 50, 0}, {20, 50, 0});
    drawing.addWell({20.5, 50, 0});
    EXPECT_EQ(walkFrom(square), 1);
    EXPECT_EQ(nodes(), Ids{square});
}

TEST_F(TouchTest, PipeOfAnotherSystemIsPassedOver) {
    drawing.addPipe({1, 0, 0}, {20, 0, 0}, {.system = kStorm});
    wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), Ids{root});
}

// Both ends are 1.5 from the node. The start is the near end, so the run leaves through the end,
// where a well stands; the well at the start is not looked at.
TEST_F(TouchTest, EndsEquallyNearTouchWithTheStart) {
    drawing.setText(root, L"井的直径", L"1.6");
    const AcDbObjectId atEnd = drawing.addWell({0, -1.9, 0}, {.diameter = L"1"});
    const AcDbObjectId atStart = drawing.addWell({0, 1.9, 0}, {.diameter = L"1"});
    drawing.addPipe({0, 1.5, 0}, {0, -1.5, 0});
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), (Ids{root, atEnd}));
    EXPECT_GE(well(atStart), 0);
}

TEST_F(TouchTest, RunIsMeasuredFromTheNodePointOfAWell) {
    drawing.setLengthMode(1);
    drawing.addPipe({2, 0, 0}, {20, 0, 0});
    wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    ASSERT_EQ(result.segs.GetSize(), 1);
    EXPECT_DOUBLE_EQ(result.segs[0].length, 2.0 + 18.0 + 0.5);
}

TEST_F(TouchTest, RunIsMeasuredFromThePipesEndInATank) {
    drawing.setLengthMode(1);
    const AcDbObjectId tank = drawing.addTank({-4, 46, 0}, {4, 54, 0});
    drawing.addPipe({2, 50, 0}, {20, 50, 0});
    drawing.addWell({20.5, 50, 0});
    EXPECT_EQ(walkFrom(tank), 1);
    ASSERT_EQ(result.segs.GetSize(), 1);
    EXPECT_DOUBLE_EQ(result.segs[0].length, 18.0 + 0.5);
}

TEST_F(TouchTest, TankTakesPipesWithExactlyOneEndInside) {
    const AcDbObjectId tank = drawing.addTank({-4, 46, 0}, {4, 54, 0});
    drawing.addPipe({-3, 50, 0}, {3, 50, 0});    // inside
    drawing.addPipe({-9, 51, 0}, {19.5, 51, 0}); // across
    drawing.addPipe({19.5, 49, 0}, {3, 49, 0});  // its end inside
    drawing.addWell({20, 51, 0});
    const AcDbObjectId far = drawing.addWell({20, 49, 0});
    EXPECT_EQ(walkFrom(tank), 1);
    EXPECT_EQ(nodes(), (Ids{tank, far}));
}

// The box is widened by a millimetre, bounds included, and heights do not count.
TEST_F(TouchTest, TankIsTouchedInPlanUpToAMillimetre) {
    const AcDbObjectId tank = drawing.addTank({-4, 46, 0}, {4, 54, 0});
    drawing.addPipe({4.0009, 49, 80}, {19.5, 49, 0});
    drawing.addPipe({4.0011, 51, 0}, {19.5, 51, 0});
    const AcDbObjectId far = drawing.addWell({20, 49, 0});
    drawing.addWell({20, 51, 0});
    EXPECT_EQ(walkFrom(tank), 1);
    EXPECT_EQ(nodes(), (Ids{tank, far}));
}

// The same for a pipe that ends in the tank.
TEST_F(TouchTest, HeightOfThePipesEndDoesNotCountInATank) {
    const AcDbObjectId tank = drawing.addTank({-4, 46, 0}, {4, 54, 0});
    drawing.addPipe({19.5, 49, 0}, {3, 49, 80});
    const AcDbObjectId far = drawing.addWell({20, 49, 0});
    EXPECT_EQ(walkFrom(tank), 1);
    EXPECT_EQ(nodes(), (Ids{tank, far}));
}

TEST_F(TouchTest, LeafIsDoneAtOnce) {
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), Ids{root});
    EXPECT_EQ(search->TraceEndPath(), 0);
}

TEST_F(TouchTest, BranchThatLeadsNowhereStaysInThePool) {
    const AcDbObjectId nowhere = drawing.addPipe({0, 1, 0}, {0, 20, 0});
    const AcDbObjectId taken = drawing.addPipe({1, 0, 0}, {20, 0, 0});
    const AcDbObjectId far = wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), (Ids{root, far}));
    EXPECT_GE(pipe(nowhere), 0);
    EXPECT_EQ(pipe(taken), -1);
}

class TouchOfManyPipes : public TouchTest,
                         public testing::WithParamInterface<std::tuple<int, tkvlt::CandidateMode>> {
};

// Around a node with pipes all round the walk comes back once for each. A dead end among them is
// tried each time and stays.
TEST_P(TouchOfManyPipes, EachIsFollowedInItsTurn) {
    const int pipes = std::get<0>(GetParam());
    mode = std::get<1>(GetParam());
    Ids expected{root};
    AcDbObjectId nowhere;
    for (int i = 0; i < pipes; ++i) {
        constexpr double turn = 6.283185307179586;
        const AcGeVector3d out(std::cos(turn * i / pipes), std::sin(turn * i / pipes), 0);
        const AcDbObjectId drawn =
            drawing.addPipe(AcGePoint3d::kOrigin + out, AcGePoint3d::kOrigin + out * 20.0);
        if (i == 3) {
            nowhere = drawn;
        } else {
            expected.push_back(drawing.addWell(AcGePoint3d::kOrigin + out * 20.5));
        }
    }
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), expected);
    EXPECT_GE(pipe(nowhere), 0);
}

INSTANTIATE_TEST_SUITE_P(FewAndMany, TouchOfManyPipes,
                         testing::Combine(testing::Values(4, 7, 8, 9, 20),
                                          testing::Values(tkvlt::CandidateMode::kIndexed,
                                                          tkvlt::CandidateMode::kPlainScan)));

TEST_F(TouchTest, FarWellOfAnotherSystemEndsNothing) {
    drawing.addPipe({1, 0, 0}, {20, 0, 0});
    drawing.addWell({20.5, 0, 0}, {.system = kStorm});
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), Ids{root});
}

// The tank is a node, and a second run ends in it: the target is not new.
TEST_F(TouchTest, TargetThatIsANodeIsACycle) {
    drawing.addTank({20, -4, 0}, {28, 4, 0});
    drawing.addPipe({1, 0, 0}, {21, 0, 0});
    drawing.addPipe({1, 0.5, 0}, {21, 2, 0});
    EXPECT_EQ(walkFrom(root), 0);
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_EQ(result.segs.GetSize(), 1) << "what was built stays";
}

// The first run leads back to a node's point: that ends the run alone, and the walk goes on to the
// second run. The flag stays, and fails the whole search.
TEST_F(TouchTest, RunThatComesNearANodeRaisesTheFlagAndTheWalkGoesOn) {
    const AcDbObjectId other = drawing.addWell({-20, 0, 0});
    const AcDbObjectId far = drawing.addWell({20.5, 0, 0});
    drawing.addPipe({-1, 0, 0}, {-19.5, 0, 0});
    drawing.addPipe({1, 0, 0}, {20, 0, 0});
    collect();
    makeNode(root);
    makeNode(other);
    EXPECT_EQ(search->WalkFromWell(0), 0) << "the flag is seen after the next descent";
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_EQ(nodes(), (Ids{root, other, far}));
}

// The only run leads back to a known node. The walk has come to the end of its pipes all the same,
// and says so; that the network closes on itself stands in the flag alone.
TEST_F(TouchTest, ScanThatRanToItsEndIsDoneThoughTheFlagIsRaised) {
    const AcDbObjectId other = drawing.addWell({-20, 0, 0});
    drawing.addPipe({-1, 0, 0}, {-19.5, 0, 0});
    collect();
    makeNode(root);
    makeNode(other);
    EXPECT_EQ(search->WalkFromWell(0), 1);
    EXPECT_EQ(search->abortFlag, 1);
    EXPECT_TRUE(result.segs.IsEmpty());
}

TEST_F(TouchTest, TargetIsNewUnlessItIsANodeOrWasMergedIntoOne) {
    const AcDbObjectId fresh = drawing.addWell({50, 0, 0});
    const AcDbObjectId merged = drawing.addWell({60, 0, 0});
    collect();
    result.wells.RemoveAll();
    Well node;
    node.nodeEntity = root;
    result.wells.Add(node);
    result.wells[0].mergedEntities.append(merged);
    collect();
    search->targetKind = tkvlt::kWellTarget;
    search->targetIndex = well(fresh);
    EXPECT_EQ(search->IsTargetNew(), 1);
    search->targetIndex = well(root);
    EXPECT_EQ(search->IsTargetNew(), 0);
    search->targetIndex = well(merged);
    EXPECT_EQ(search->IsTargetNew(), 0);
}

TEST_F(TouchTest, FreeWellsAroundAReachedWellAreTakenInThere) {
    drawing.addPipe({1, 0, 0}, {20, 0, 0});
    const AcDbObjectId near = drawing.addWell({20.5, 0.9, 0});
    const AcDbObjectId far = wellBeyond(20);
    EXPECT_EQ(walkFrom(root), 1);
    EXPECT_EQ(nodes(), (Ids{root, far}));
    EXPECT_EQ(idsOf(result.wells[1].mergedEntities), Ids{near});
}

TEST_F(TouchTest, KthSegmentLeadsToNodeKPlusOne) {
    drawing.addPipe({0, 1, 0}, {0, 20, 0});
    drawing.addPipe({1, 0, 0}, {20, 0, 0});
    drawing.addPipe({21, 0, 0}, {40, 0, 0});
    drawing.addWell({0, 20.5, 0});
    wellBeyond(20);
    wellBeyond(40);
    EXPECT_EQ(walkFrom(root), 1);
    ASSERT_EQ(result.wells.GetSize(), 4);
    ASSERT_EQ(result.segs.GetSize(), 3);
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(result.segs[k].endWell, k + 1);
        EXPECT_EQ(result.wells[k + 1].inSeg, k);
    }
}

} // namespace module_tests
