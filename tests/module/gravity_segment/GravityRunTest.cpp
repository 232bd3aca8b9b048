#include "module/gravity_segment/SearchTest.h"

#include "gravity/GetGravityNetwork.h"

namespace module_tests {
namespace {

class GravityRun : public SearchTest {
protected:
    int run(const AcDbObjectId& start, const AcDbObjectId& end = {}) {
        return begin(start, end).Run();
    }

    Ids nodes() const {
        Ids ids;
        for (int i = 0; i < static_cast<int>(network->wells.GetSize()); ++i) {
            ids.push_back(network->wells.GetAt(i).nodeEntity);
        }
        return ids;
    }

    /// Wells at 0, 100 and 200 with pipes between them.
    void drawLineOfWells(const wchar_t* system = kSewer, double y = 0) {
        for (int i = 0; i < 3; ++i) {
            wells.push_back(drawing.addWell({i * 100.0, y, 0}, {.system = system}));
        }
        for (int i = 0; i < 2; ++i) {
            pipes.push_back(
                drawing.addPipe({i * 100.0, y, 0}, {i * 100.0 + 100, y, 0}, {.system = system}));
        }
    }

    Ids wells;
    Ids pipes;
};
INSTANTIATE_TEST_SUITE_P(Modes, GravityRun, bothModes(), modeName);

TEST_P(GravityRun, NullEndGivesANetworkWithoutAPath) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0]), 1);
    EXPECT_EQ(nodes(), wells);
    EXPECT_EQ(network->segs.GetSize(), 2);
    EXPECT_EQ(network->pathSegs.GetSize(), 0);
    EXPECT_EQ(network->pathWells.GetSize(), 0);
    EXPECT_EQ(network->rootWell, 0);
    EXPECT_EQ(search->abortFlag, 0);
}

TEST_P(GravityRun, EndGivesThePathBackToTheRoot) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0], wells[2]), 1);
    EXPECT_EQ(intsOf(network->pathWells), (std::vector<int>{2, 1, 0}));
    EXPECT_EQ(intsOf(network->pathSegs), (std::vector<int>{1, 0}));
}

TEST_P(GravityRun, OnlyTheSystemOfTheStartIsWalked) {
    drawLineOfWells(kSewer);
    const AcDbObjectId other = drawing.addWell({0, 100, 0}, {.system = kStorm});
    drawing.addPipe({0, 0, 0}, {0, 100, 0}, {.system = kStorm});
    EXPECT_EQ(run(wells[0]), 1);
    EXPECT_EQ(nodes(), wells);
    // Both systems were collected all the same.
    EXPECT_EQ(idsIn(search->wellPool).back(), other);
    EXPECT_EQ(idsIn(search->pipePool).size(), 1U);
}

TEST_P(GravityRun, EqualEndsFailBeforeAnythingIsCollected) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0], wells[0]), 0);
    EXPECT_TRUE(search->pipePool.IsEmpty());
    EXPECT_TRUE(search->wellPool.IsEmpty());
    EXPECT_EQ(network->rootWell, -1);
}

TEST_P(GravityRun, EndOfAnotherSystemFailsBeforeAnythingIsCollected) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0], drawing.addWell({0, 100, 0}, {.system = kStorm})), 0);
    EXPECT_TRUE(search->pipePool.IsEmpty());
    EXPECT_TRUE(search->wellPool.IsEmpty());
}

TEST_P(GravityRun, NullStartFails) {
    drawLineOfWells();
    EXPECT_EQ(run(AcDbObjectId()), 0);
    EXPECT_EQ(run(AcDbObjectId(), wells[0]), 0);
}

TEST_P(GravityRun, StartWithoutTextFails) {
    drawLineOfWells();
    EXPECT_EQ(run(drawing.addBlock({0, 0, 0}, L"ANY")), 0);
}

TEST_P(GravityRun, DrawingWithoutNetworkEntitiesFails) {
    // The long tank name is not in the selection.
    const AcDbObjectId tank = drawing.addTank({0, 0, 0}, {5, 5, 0}, {.tank = nullptr});
    EXPECT_EQ(run(tank), 0);
}

TEST_P(GravityRun, TankByItsLongNameAlonePassesAsAStartAndThenFails) {
    drawLineOfWells();
    const AcDbObjectId tank = drawing.addTank({-10, -10, 0}, {0, 10, 0}, {.tank = nullptr});
    EXPECT_EQ(run(tank), 0);
    EXPECT_EQ(search->startKind, tkvlt::kTankEntity);
    EXPECT_EQ(nodes(), Ids{});
}

TEST_P(GravityRun, TankByBothNamesIsFound) {
    drawLineOfWells();
    const AcDbObjectId tank = drawing.addTank({-50, -10, 0}, {-40, 10, 0});
    drawing.addPipe({-40, 0, 0}, {0, 0, 0});
    EXPECT_EQ(run(tank), 1);
    EXPECT_EQ(nodes(), (Ids{tank, wells[0], wells[1], wells[2]}));
}

TEST_P(GravityRun, PipeOfLengthOneOrLessIsInvisible) {
    const AcDbObjectId start = drawing.addWell({0, 0, 0});
    drawing.addWell({1, 0, 0}, {.diameter = L"0.2"});
    const AcDbObjectId stub = drawing.addPipe({0, 0, 0}, {0, 1, 0});
    EXPECT_EQ(run(stub), 0);
    EXPECT_EQ(nodes(), Ids{});
    EXPECT_EQ(run(start), 0);
}

TEST_P(GravityRun, StartPipeThatLeadsNowhereFails) {
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {50, 0, 0});
    EXPECT_EQ(run(pipe), 0);
    EXPECT_EQ(nodes(), Ids{});
}

TEST_P(GravityRun, NetworkOfTanksAloneFails) {
    const AcDbObjectId tank = drawing.addTank({-10, -10, 0}, {0, 10, 0});
    drawing.addTank({100, -10, 0}, {110, 10, 0});
    drawing.addPipe({0, 0, 0}, {100, 0, 0});
    EXPECT_EQ(run(tank), 0);
    EXPECT_EQ(nodes(), Ids{tank}); // what had been built stays in the caller's hands
}

TEST_P(GravityRun, CycleFails) {
    const AcDbObjectId a = drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    drawing.addWell({100, 100, 0});
    drawing.addPipe({0, 0, 0}, {100, 0, 0});
    drawing.addPipe({100, 0, 0}, {100, 100, 0});
    drawing.addPipe({100, 100, 0}, {0, 0, 0});
    EXPECT_EQ(run(a), 0);
    EXPECT_EQ(search->abortFlag, 1);
}

TEST_P(GravityRun, LoneWellFails) {
    const AcDbObjectId well = drawing.addWell({0, 0, 0});
    EXPECT_EQ(run(well), 0);
    EXPECT_EQ(nodes(), Ids{well});
}

TEST_P(GravityRun, EndThatIsNotReachedFailsAndLeavesTheNetwork) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0], drawing.addWell({500, 500, 0})), 0);
    EXPECT_EQ(nodes(), wells);
    EXPECT_EQ(network->pathWells.GetSize(), 0);
}

TEST_P(GravityRun, ElevationsAreOrderedAtTheEnd) {
    const AcDbObjectId well = drawing.addWell({0, 0, 0});
    drawing.addWell({100, 0, 0});
    drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.startElevation = L"5.25", .endElevation = L"4.75"});
    EXPECT_EQ(run(well), 1);
    EXPECT_DOUBLE_EQ(network->segs.GetAt(0).startElevation, 4.75);
    EXPECT_DOUBLE_EQ(network->segs.GetAt(0).endElevation, 5.25);
}

TEST_P(GravityRun, EntityThatIsWellAndPipeIsNoWellToStartFrom) {
    drawLineOfWells();
    drawing.setText(pipes[0], L"管井系统", kSewer);
    EXPECT_EQ(run(pipes[0]), 0);
    EXPECT_EQ(search->startKind, tkvlt::kWellEntity);
    EXPECT_EQ(nodes(), Ids{});
}

TEST_P(GravityRun, ExportedFunctionGivesTheSameNetwork) {
    drawLineOfWells();
    startId = wells[0];
    endId = wells[2];
    GravitySearchObject object;
    EXPECT_EQ(GetGravityNetwork(&object, startId, endId, point), 1);
    EXPECT_EQ(object.wells.GetSize(), 3);
    EXPECT_EQ(object.segs.GetSize(), 2);
    EXPECT_EQ(intsOf(object.pathWells), (std::vector<int>{2, 1, 0}));
    endId = drawing.addWell({500, 500, 0});
    GravitySearchObject failed;
    EXPECT_EQ(GetGravityNetwork(&failed, startId, endId, point), 0);
    EXPECT_EQ(failed.wells.GetSize(), 3);
}

TEST_P(GravityRun, NothingStaysOpen) {
    drawLineOfWells();
    EXPECT_EQ(run(wells[0]), 1);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

} // namespace
} // namespace module_tests
