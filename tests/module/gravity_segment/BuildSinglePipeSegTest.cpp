#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

class SinglePipe : public SearchTest {
protected:
    int build(const AcDbObjectId& pipe, const wchar_t* system = kSewer) {
        beginWithoutResult();
        return search->BuildSinglePipeSeg(seg, pipe, system);
    }

    /// Wells of radius 0.5 at 0 and 100, and a pipe that stops 0.4 short of both centres.
    void drawPipeBetweenWells(const PipeTexts& texts = {}) {
        atStart = drawing.addWell({0, 0, 0});
        atEnd = drawing.addWell({100, 0, 0});
        pipe = drawing.addPipe({0.4, 0, 0}, {99.6, 0, 0}, texts);
    }

    GravitySeg seg;
    AcDbObjectId atStart;
    AcDbObjectId atEnd;
    AcDbObjectId pipe;
};
INSTANTIATE_TEST_SUITE_P(Modes, SinglePipe, bothModes(), modeName);

TEST_P(SinglePipe, PipeBetweenTwoWellsIsTurnedAgainstTheEntity) {
    drawPipeBetweenWells();
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.endEntity, atStart);
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_EQ(seg.startEntity, atEnd);
    EXPECT_TRUE(samePoint(seg.startPoint, {100, 0, 0}, 0.0));
    EXPECT_EQ(idsOf(seg.pipeIds), Ids{pipe});
    EXPECT_EQ(utf8(seg.systemName), "污水");
}

TEST_P(SinglePipe, IndicesAndFlowSenseKeepTheirDefaults) {
    drawPipeBetweenWells({.flow = L"SE"});
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.startWell, -1);
    EXPECT_EQ(seg.endWell, -1);
    EXPECT_EQ(seg.flowReversed, 1);
}

TEST_P(SinglePipe, LengthIsTheStraightMeasureBetweenTheNodes) {
    drawPipeBetweenWells();
    EXPECT_EQ(build(pipe), 1);
    EXPECT_DOUBLE_EQ(seg.length, 99.0); // 100 less two radii of 0.5
    drawing.setLengthMode(1);
    EXPECT_EQ(build(pipe), 1);
    EXPECT_DOUBLE_EQ(seg.length, 100.0);
    drawing.setLengthMode(2);
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.length, 0.0);
}

TEST_P(SinglePipe, LabelOfALonePipeIsInItsMiddle) {
    drawPipeBetweenWells();
    EXPECT_EQ(build(pipe), 1);
    EXPECT_TRUE(samePoint(seg.annotatePoint, {50, 0, 0}));
    EXPECT_TRUE(sameVector(seg.annotateVector, {1, 0, 0}));
}

TEST_P(SinglePipe, TextsAreRead) {
    drawPipeBetweenWells(
        {.diameter = L"300.5", .flow = L"SE", .slope = L"0.003", .material = L"PVC"});
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.diameter, 300);
    EXPECT_EQ(utf8(seg.flowText), "SE");
    EXPECT_DOUBLE_EQ(seg.slope, 0.003);
    EXPECT_EQ(utf8(seg.material), "PVC");
}

TEST_P(SinglePipe, MissingTextsGiveZeros) {
    drawPipeBetweenWells();
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_EQ(seg.slope, 0.0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.material.IsEmpty());
}

class SinglePipeElevations : public SinglePipe {
protected:
    void buildWith(const wchar_t* flow) {
        drawPipeBetweenWells({.flow = flow, .startElevation = L"5.25", .endElevation = L"4.75"});
        EXPECT_EQ(build(pipe), 1);
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, SinglePipeElevations, bothModes(), modeName);

TEST_P(SinglePipeElevations, SEPutsTheStartTextAtTheSegmentsEnd) {
    buildWith(L"SE");
    EXPECT_DOUBLE_EQ(seg.startElevation, 4.75);
    EXPECT_DOUBLE_EQ(seg.endElevation, 5.25);
}

TEST_P(SinglePipeElevations, ESPutsTheStartTextAtTheSegmentsStart) {
    buildWith(L"ES");
    EXPECT_DOUBLE_EQ(seg.startElevation, 5.25);
    EXPECT_DOUBLE_EQ(seg.endElevation, 4.75);
}

TEST_P(SinglePipeElevations, LowerCaseFlowTextSetsNeither) {
    buildWith(L"es");
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_EQ(seg.endElevation, 0.0);
    EXPECT_EQ(utf8(seg.flowText), "es");
}

TEST_P(SinglePipeElevations, MissingFlowTextSetsNeither) {
    buildWith(nullptr);
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_EQ(seg.endElevation, 0.0);
}

TEST_P(SinglePipe, PipeThatIsNotCollectedGivesZeroAndLeavesTheSegment) {
    drawPipeBetweenWells();
    const AcDbObjectId tooShort =
        drawing.addPipe({0, 9, 0}, {1, 9, 0}, {.diameter = L"300", .flow = L"SE"});
    EXPECT_EQ(build(tooShort), 0);
    EXPECT_EQ(build(atStart), 0);
    EXPECT_EQ(build(AcDbObjectId()), 0);
    EXPECT_EQ(seg.pipeIds.length(), 0);
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.systemName.IsEmpty());
    EXPECT_TRUE(samePoint(seg.startPoint, {0, 0, 0}, 0.0));
    EXPECT_EQ(seg.length, 0.0);
    EXPECT_EQ(utf8(search->systemName), "污水"); // the context has it all the same
}

TEST_P(SinglePipe, WellAtTheStartAloneGivesTwoAndThePipesOwnValues) {
    atStart = drawing.addWell({0, 0, 0});
    pipe = drawing.addPipe({0.25, 0, 0}, {60, 0, 0}, {.diameter = L"300", .flow = L"SE"});
    EXPECT_EQ(build(pipe), 2);
    EXPECT_EQ(seg.endEntity, atStart);
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(seg.startEntity.isNull());
    EXPECT_TRUE(samePoint(seg.startPoint, {60, 0, 0}, 0.0));
    EXPECT_DOUBLE_EQ(seg.length, 59.75);
    EXPECT_EQ(idsOf(seg.pipeIds), Ids{pipe});
    EXPECT_EQ(seg.diameter, 300);
    EXPECT_EQ(utf8(seg.systemName), "污水");
    EXPECT_TRUE(samePoint(seg.annotatePoint, {30.125, 0, 0}));
}

TEST_P(SinglePipe, WellAtTheEndAloneGivesTwo) {
    atEnd = drawing.addWell({60, 0, 0});
    pipe = drawing.addPipe({0, 0, 0}, {59.75, 0, 0});
    EXPECT_EQ(build(pipe), 2);
    EXPECT_EQ(seg.startEntity, atEnd);
    EXPECT_TRUE(samePoint(seg.startPoint, {60, 0, 0}, 0.0));
    EXPECT_TRUE(seg.endEntity.isNull());
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_DOUBLE_EQ(seg.length, 59.75);
}

TEST_P(SinglePipe, OneSidedChainKeepsThePipeAlone) {
    // The chain to the well runs over a second pipe, which the segment does not take.
    atStart = drawing.addWell({0, 0, 0});
    drawing.addPipe({0, 0, 0}, {40, 0, 0});
    pipe = drawing.addPipe({40, 0, 0}, {60, 0, 0});
    EXPECT_EQ(build(pipe), 2);
    EXPECT_EQ(seg.endEntity, atStart);
    EXPECT_EQ(idsOf(seg.pipeIds), Ids{pipe});
    EXPECT_DOUBLE_EQ(seg.length, 20.0);
    EXPECT_TRUE(samePoint(seg.annotatePoint, {50, 0, 0}));
}

TEST_P(SinglePipe, PipeThatLeadsNowhereGivesZeroAndItsOwnValues) {
    pipe = drawing.addPipe({0, 0, 0}, {60, 0, 0},
                           {.diameter = L"300",
                            .flow = L"ES",
                            .startElevation = L"5",
                            .endElevation = L"4",
                            .material = L"PVC"});
    EXPECT_EQ(build(pipe), 0);
    EXPECT_TRUE(seg.startEntity.isNull());
    EXPECT_TRUE(seg.endEntity.isNull());
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(seg.startPoint, {60, 0, 0}, 0.0));
    EXPECT_EQ(idsOf(seg.pipeIds), Ids{pipe});
    EXPECT_DOUBLE_EQ(seg.length, 60.0);
    EXPECT_EQ(seg.diameter, 300);
    EXPECT_EQ(utf8(seg.material), "PVC");
    EXPECT_DOUBLE_EQ(seg.startElevation, 5.0);
    EXPECT_TRUE(samePoint(seg.annotatePoint, {30, 0, 0}));
    EXPECT_TRUE(sameVector(seg.annotateVector, {1, 0, 0}));
}

TEST_P(SinglePipe, EndsThatLeadNowhereAreThePipesOwn) {
    // Away from the origin, which is where the points of a new segment lie.
    pipe = drawing.addPipe({40, 7, 1}, {90, 8, 2});
    EXPECT_EQ(build(pipe), 0);
    EXPECT_TRUE(samePoint(seg.endPoint, {40, 7, 1}, 0.0));
    EXPECT_TRUE(samePoint(seg.startPoint, {90, 8, 2}, 0.0));
    atEnd = drawing.addWell({90, 8, 2});
    EXPECT_EQ(build(pipe), 2);
    EXPECT_EQ(seg.startEntity, atEnd);
    EXPECT_TRUE(samePoint(seg.endPoint, {40, 7, 1}, 0.0));
}

TEST_P(SinglePipe, ChainOfThreeStandsInOrderFromTheWellAtTheStartSide) {
    atEnd = drawing.addWell({90, 0, 0});
    const AcDbObjectId last = drawing.addPipe({60, 0, 0}, {90, 0, 0});
    pipe = drawing.addPipe({30, 0, 0}, {60, 0, 0}, {.diameter = L"300"});
    const AcDbObjectId first = drawing.addPipe({30, 0, 0}, {0, 0, 0}, {.diameter = L"500"});
    atStart = drawing.addWell({0, 0, 0});
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(idsOf(seg.pipeIds), (Ids{first, pipe, last}));
    EXPECT_EQ(seg.endEntity, atStart);
    EXPECT_EQ(seg.startEntity, atEnd);
    EXPECT_EQ(seg.diameter, 300); // the asked pipe's own
    EXPECT_DOUBLE_EQ(seg.length, 89.0);
    // Half of 89 from the well at the start: 14.5 into the middle pipe.
    EXPECT_TRUE(samePoint(seg.annotatePoint, {44.5, 0, 0}));
}

TEST_P(SinglePipe, ChainOfFiveIsReversedAroundItsMiddle) {
    drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    Ids pipes;
    for (int i = 0; i < 5; ++i) {
        pipes.push_back(drawing.addPipe({i * 20.0, 0, 0}, {i * 20.0 + 20, 0, 0}));
    }
    EXPECT_EQ(build(pipes[3]), 1);
    EXPECT_EQ(idsOf(seg.pipeIds), pipes);
}

TEST_P(SinglePipe, SecondTraceCannotUseThePipesOfTheFirst) {
    // Ends within 4.4 of one another join. The long pipe begins near both ends of the short one;
    // the first trace takes it, so nothing is left for the second.
    drawing.setBreakDist(1.0);
    pipe = drawing.addPipe({0, 0, 0}, {1.5, 0, 0});
    drawing.addPipe({-0.5, 0, 0}, {-60, 0, 0});
    const AcDbObjectId well = drawing.addWell({-60, 0, 0});
    EXPECT_EQ(build(pipe), 2);
    EXPECT_EQ(seg.endEntity, well);
    EXPECT_TRUE(seg.startEntity.isNull());
}

TEST_P(SinglePipe, TanksAreTargetsToo) {
    const AcDbObjectId tank =
        drawing.addTank({-10, -10, 0}, {10, 10, 0}, {.system = kStorm, .length = L"4000"});
    atEnd = drawing.addWell({100, 0, 0});
    pipe = drawing.addPipe({10, 0, 0}, {100, 0, 0});
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(seg.endEntity, tank);
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}));
    EXPECT_DOUBLE_EQ(seg.length, 97.5); // 100 - 4000 / 1000 / 2 - 0.5
}

TEST_P(SinglePipe, PipeOfAnotherSystemIsFoundAndTheTracesFollowTheArgument) {
    const AcDbObjectId sewer = drawing.addWell({0, 0, 0}, {.system = kSewer});
    drawing.addWell({100, 0, 0}, {.system = kStorm});
    pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.system = kStorm});
    EXPECT_EQ(build(pipe, kSewer), 2);
    EXPECT_EQ(seg.endEntity, sewer);
    EXPECT_TRUE(seg.startEntity.isNull());
    EXPECT_EQ(utf8(seg.systemName), "污水");
}

TEST_P(SinglePipe, PoolsStayAsTheyWereAndNothingAborts) {
    drawPipeBetweenWells();
    EXPECT_EQ(build(pipe), 1);
    EXPECT_EQ(idsIn(search->pipePool), Ids{pipe});
    EXPECT_EQ(idsIn(search->wellPool), (Ids{atStart, atEnd}));
    EXPECT_EQ(search->abortFlag, 0);
}

TEST_P(SinglePipe, CurveThatCannotBeOpenedLeavesThePointsToTheTargets) {
    drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.diameter = L"300"});
    beginWithoutResult();
    drawing.erase(pipe);
    EXPECT_EQ(search->BuildSinglePipeSeg(seg, pipe, kSewer), 1);
    EXPECT_TRUE(samePoint(seg.startPoint, {100, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_EQ(seg.diameter, 0);
}

TEST_P(SinglePipe, CurveThatCannotBeOpenedKeepsTheCallersPointWithoutATarget) {
    const AcDbObjectId well = drawing.addWell({5, 5, 0});
    pipe = drawing.addPipe({5, 5, 0}, {100, 5, 0});
    beginWithoutResult();
    drawing.erase(pipe);
    EXPECT_EQ(search->BuildSinglePipeSeg(seg, pipe, kSewer), 2);
    EXPECT_EQ(seg.endEntity, well);
    EXPECT_TRUE(samePoint(seg.endPoint, {5, 5, 0}, 0.0));
    EXPECT_TRUE(samePoint(seg.startPoint, {0, 0, 0}, 0.0));
}

} // namespace
} // namespace module_tests
