#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

using tkvlt::kTankTarget;
using tkvlt::kWellTarget;

/// A root well at the origin, and whatever a test draws beside it.
class CommitSegment : public SearchTest {
protected:
    CommitSegment() { root = drawing.addWell({0, 0, 0}); }

    /// Places the root and leaves the pipes as a finished chain to the target.
    void trace(const Ids& pipes, const AcDbObjectId& target, double length = 50) {
        begin(root);
        ASSERT_EQ(search->ValidateEnds(), 1);
        ASSERT_EQ(search->CollectEntities(), 1);
        ASSERT_EQ(search->PlaceRootWell(), 1);
        search->ResetChain(poolIndexOf(pipes.at(0)));
        for (std::size_t i = 1; i < pipes.size(); ++i) {
            search->pipeMarks.SetAt(poolIndexOf(pipes[i]), 1);
            search->chainPipes.Add(poolIndexOf(pipes[i]));
        }
        search->chainLength = length;
        aimAt(target);
    }

    GravitySeg& commit() {
        EXPECT_EQ(search->CommitSegment(0), 1);
        return network->segs.ElementAt(0);
    }

    /// Commits one pipe from `from` to `to` with both elevations.
    GravitySeg& commitPipe(const AcGePoint3d& from, const AcGePoint3d& to, const wchar_t* flow) {
        const AcDbObjectId well = drawing.addWell({100, 0, 0});
        trace({drawing.addPipe(from, to,
                               {.flow = flow, .startElevation = L"5.25", .endElevation = L"4.75"})},
              well);
        return commit();
    }

    AcDbObjectId root;

private:
    void aimAt(const AcDbObjectId& target) {
        for (int i = 0; i < search->wellPool.Size(); ++i) {
            if (search->wellPool[i].id == target) {
                search->targetKind = kWellTarget;
                search->targetIndex = i;
                return;
            }
        }
        search->targetKind = kTankTarget;
        search->targetIndex = 0;
        ASSERT_EQ(search->tankPool[0].id, target);
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, CommitSegment, bothModes(), modeName);

TEST_P(CommitSegment, WellAsTargetGivesANodeWithRadiusAndNumber) {
    const AcDbObjectId well =
        drawing.addWell({100, 3, 7}, {.diameter = L"1.5", .number = L"W12", .square = true});
    trace({drawing.addPipe({0, 0, 0}, {100, 3, 7})}, well);
    commit();
    const Well& node = network->wells.GetAt(1);
    EXPECT_EQ(node.isWell, 1);
    EXPECT_EQ(node.nodeEntity, well);
    EXPECT_EQ(node.id, well);
    EXPECT_TRUE(samePoint(node.nodePoint, {100, 3, 7}, 0.0));
    EXPECT_DOUBLE_EQ(node.nodeRadius, 0.75);
    EXPECT_EQ(utf8(node.number), "W12");
    EXPECT_EQ(node.isSquareWell, 1);
    EXPECT_EQ(node.mergedEntities.length(), 0);
}

TEST_P(CommitSegment, TankAsTargetGivesANodeWithoutRadiusAndNumber) {
    const AcDbObjectId tank = drawing.addTankAt({101, 2, 0}, {90, -10, 0}, {110, 10, 0});
    drawing.setText(tank, L"管井编号", L"T1");
    drawing.setText(tank, L"井的直径", L"8");
    trace({drawing.addPipe({0, 0, 0}, {90, 0, 0})}, tank);
    commit();
    const Well& node = network->wells.GetAt(1);
    EXPECT_EQ(node.isWell, 0);
    EXPECT_EQ(node.nodeEntity, tank);
    EXPECT_TRUE(samePoint(node.nodePoint, {101, 2, 0}, 0.0));
    EXPECT_EQ(node.nodeRadius, 0.0);
    EXPECT_TRUE(node.number.IsEmpty());
    EXPECT_TRUE(samePoint(node.extents.maxPoint(), {110, 10, 0}));
}

TEST_P(CommitSegment, NodesAndSegmentAreLinked) {
    const AcDbObjectId well = drawing.addWell({100, 0, 0});
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0})}, well, 61.5);
    const GravitySeg& seg = commit();
    EXPECT_EQ(seg.startWell, 0);
    EXPECT_EQ(seg.endWell, 1);
    EXPECT_EQ(seg.startEntity, root);
    EXPECT_EQ(seg.endEntity, well);
    EXPECT_TRUE(samePoint(seg.startPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(seg.endPoint, {100, 0, 0}, 0.0));
    EXPECT_DOUBLE_EQ(seg.length, 61.5); // the chain's, as traced
    EXPECT_EQ(utf8(seg.systemName), "污水");
    EXPECT_EQ(intsOf(network->wells.GetAt(0).outSegs), std::vector<int>{0});
    EXPECT_EQ(network->wells.GetAt(0).inSeg, -1);
    EXPECT_EQ(network->wells.GetAt(1).inSeg, 0);
    EXPECT_EQ(network->wells.GetAt(1).outSegs.GetSize(), 0);
}

TEST_P(CommitSegment, SegmentStartsAtTheNodePointAndNotAtThePosition) {
    const AcDbObjectId well = drawing.addWell({100, 0, 0});
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0})}, well);
    network->wells.ElementAt(0).nodePoint.set(0.5, 0.25, 0);
    EXPECT_TRUE(samePoint(commit().startPoint, {0.5, 0.25, 0}, 0.0));
}

TEST_P(CommitSegment, SecondSegmentOfANodeIsAppended) {
    const AcDbObjectId first = drawing.addWell({100, 0, 0});
    const AcDbObjectId second = drawing.addWell({0, 100, 0});
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0});
    const AcDbObjectId other = drawing.addPipe({0, 0, 0}, {0, 100, 0});
    trace({pipe}, first);
    EXPECT_EQ(search->CommitSegment(0), 1);
    search->ResetChain(poolIndexOf(other));
    search->targetIndex = 2;
    EXPECT_EQ(search->CommitSegment(0), 2);
    EXPECT_EQ(network->wells.GetAt(2).nodeEntity, second);
    EXPECT_EQ(network->wells.GetAt(2).inSeg, 1);
    EXPECT_EQ(intsOf(network->wells.GetAt(0).outSegs), (std::vector<int>{0, 1}));
    EXPECT_EQ(idsOf(network->segs.GetAt(1).pipeIds), Ids{other});
}

TEST_P(CommitSegment, LabelIsPlacedBeforeThePipesAreTaken) {
    const AcDbObjectId far = drawing.addPipe({100, 0, 0}, {40, 0, 0});
    const AcDbObjectId near = drawing.addPipe({0, 0, 0}, {40, 0, 0});
    trace({near, far}, drawing.addWell({100, 0, 0}), 100);
    const GravitySeg& seg = commit();
    EXPECT_TRUE(samePoint(seg.annotatePoint, {50, 0, 0}));
    EXPECT_TRUE(sameVector(seg.annotateVector, {-1, 0, 0}));
}

TEST_P(CommitSegment, PipesStandInPoolOrderAndLeaveThePool) {
    const AcDbObjectId c = drawing.addPipe({60, 0, 0}, {100, 0, 0});
    const AcDbObjectId other = drawing.addPipe({0, 50, 0}, {9, 50, 0});
    const AcDbObjectId a = drawing.addPipe({0, 0, 0}, {30, 0, 0});
    const AcDbObjectId b = drawing.addPipe({30, 0, 0}, {60, 0, 0});
    trace({a, b, c}, drawing.addWell({100, 0, 0}));
    const GravitySeg& seg = commit();
    EXPECT_EQ(idsOf(seg.pipeIds), (Ids{c, a, b}));
    EXPECT_EQ(idsIn(search->pipePool), Ids{other});
    EXPECT_EQ(search->pipeMarks.GetSize(), search->pipePool.Size());
}

TEST_P(CommitSegment, TargetStaysInItsPool) {
    const AcDbObjectId well = drawing.addWell({100, 0, 0});
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0})}, well);
    commit();
    EXPECT_EQ(idsIn(search->wellPool), (Ids{root, well}));
}

TEST_P(CommitSegment, AttributesAreThoseOfTheFirstPipeInThePoolAlone) {
    const AcDbObjectId middle = drawing.addPipe({30, 0, 0}, {60, 0, 0},
                                                {.diameter = L"300",
                                                 .flow = L"SE",
                                                 .slope = L"0.003",
                                                 .startElevation = L"3.5",
                                                 .endElevation = L"2.5",
                                                 .material = L"HDPE"});
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {30, 0, 0},
                                               {.diameter = L"500",
                                                .flow = L"ES",
                                                .slope = L"0.009",
                                                .startElevation = L"9",
                                                .endElevation = L"8",
                                                .material = L"PVC"});
    trace({first, middle}, drawing.addWell({60, 0, 0}));
    const GravitySeg& seg = commit();
    EXPECT_EQ(seg.diameter, 300);
    EXPECT_DOUBLE_EQ(seg.slope, 0.003);
    EXPECT_EQ(utf8(seg.flowText), "SE");
    EXPECT_EQ(utf8(seg.material), "HDPE");
    EXPECT_DOUBLE_EQ(seg.startElevation, 3.5);
    EXPECT_DOUBLE_EQ(seg.endElevation, 2.5);
    EXPECT_EQ(seg.flowReversed, 0);
}

TEST_P(CommitSegment, PipeDrawnWithTheSegmentAndSEFlowsWithIt) {
    const GravitySeg& seg = commitPipe({0, 0, 0}, {100, 0, 0}, L"SE");
    EXPECT_EQ(seg.flowReversed, 0);
    EXPECT_DOUBLE_EQ(seg.startElevation, 5.25);
    EXPECT_DOUBLE_EQ(seg.endElevation, 4.75);
}

TEST_P(CommitSegment, PipeDrawnAgainstTheSegmentAndSEFlowsAgainstIt) {
    const GravitySeg& seg = commitPipe({100, 0, 0}, {0, 0, 0}, L"SE");
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_DOUBLE_EQ(seg.startElevation, 4.75);
    EXPECT_DOUBLE_EQ(seg.endElevation, 5.25);
}

TEST_P(CommitSegment, PipeDrawnWithTheSegmentAndESFlowsAgainstItWithTheSameElevations) {
    const GravitySeg& seg = commitPipe({0, 0, 0}, {100, 0, 0}, L"ES");
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_DOUBLE_EQ(seg.startElevation, 5.25);
    EXPECT_DOUBLE_EQ(seg.endElevation, 4.75);
}

TEST_P(CommitSegment, PipeDrawnAgainstTheSegmentAndESFlowsWithIt) {
    const GravitySeg& seg = commitPipe({100, 0, 0}, {0, 0, 0}, L"ES");
    EXPECT_EQ(seg.flowReversed, 0);
    EXPECT_DOUBLE_EQ(seg.startElevation, 4.75);
    EXPECT_DOUBLE_EQ(seg.endElevation, 5.25);
}

TEST_P(CommitSegment, MissingFlowTextCountsAsES) {
    const GravitySeg& seg = commitPipe({0, 0, 0}, {100, 0, 0}, nullptr);
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_DOUBLE_EQ(seg.startElevation, 5.25);
}

TEST_P(CommitSegment, FlowTextInOtherCaseCountsAsESAndIsKeptAsRead) {
    const GravitySeg& seg = commitPipe({0, 0, 0}, {100, 0, 0}, L"se");
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_EQ(utf8(seg.flowText), "se");
}

TEST_P(CommitSegment, PipeWithEquallyFarEndsRunsAgainstTheSegment) {
    const GravitySeg& seg = commitPipe({-5, 3, 0}, {5, 3, 0}, L"SE");
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_DOUBLE_EQ(seg.startElevation, 4.75);
    EXPECT_DOUBLE_EQ(seg.endElevation, 5.25);
}

TEST_P(CommitSegment, TextsGiveTheirNumericPrefixes) {
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0},
                           {.diameter = L"300.5",
                            .slope = L"0.003 approx",
                            .startElevation = L"12.5m",
                            .endElevation = L"deep"})},
          drawing.addWell({100, 0, 0}));
    const GravitySeg& seg = commit();
    EXPECT_EQ(seg.diameter, 300);
    EXPECT_DOUBLE_EQ(seg.slope, 0.003);
    EXPECT_DOUBLE_EQ(seg.startElevation, 12.5);
    EXPECT_EQ(seg.endElevation, 0.0);
}

TEST_P(CommitSegment, MissingTextsGiveZeros) {
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0})}, drawing.addWell({100, 0, 0}));
    const GravitySeg& seg = commit();
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_EQ(seg.slope, 0.0);
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_EQ(seg.endElevation, 0.0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.material.IsEmpty());
}

TEST_P(CommitSegment, PipeThatCannotBeOpenedGivesEmptyTextsAndFlowWithTheSegment) {
    const AcDbObjectId pipe = drawing.addPipe(
        {0, 0, 0}, {100, 0, 0},
        {.diameter = L"300", .flow = L"SE", .startElevation = L"5", .material = L"PVC"});
    trace({pipe}, drawing.addWell({100, 0, 0}));
    drawing.erase(pipe);
    const GravitySeg& seg = commit();
    EXPECT_EQ(idsOf(seg.pipeIds), Ids{pipe});
    EXPECT_EQ(seg.flowReversed, 0);
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.material.IsEmpty());
    EXPECT_EQ(utf8(seg.systemName), "污水");
}

TEST_P(CommitSegment, SegmentWithoutPipesKeepsTheDefaultAttributes) {
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.diameter = L"300"});
    trace({pipe}, drawing.addWell({100, 0, 0}));
    search->pipeMarks.SetAt(poolIndexOf(pipe), 0);
    search->chainPipes.SetSize(0);
    const GravitySeg& seg = commit();
    EXPECT_EQ(seg.pipeIds.length(), 0);
    EXPECT_TRUE(seg.systemName.IsEmpty());
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_EQ(idsIn(search->pipePool), Ids{pipe});
}

TEST_P(CommitSegment, PipesAreLeftClosed) {
    trace({drawing.addPipe({0, 0, 0}, {100, 0, 0})}, drawing.addWell({100, 0, 0}));
    commit();
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

} // namespace
} // namespace module_tests
