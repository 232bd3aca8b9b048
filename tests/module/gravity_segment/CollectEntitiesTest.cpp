#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

class CollectEntities : public SearchTest {};
INSTANTIATE_TEST_SUITE_P(Modes, CollectEntities, bothModes(), modeName);

TEST_P(CollectEntities, DrawingWithoutNetworkEntitiesGivesZero) {
    EXPECT_EQ(begin().CollectEntities(), 0);
    drawing.addPipe({0, 0, 0}, {9, 0, 0}, {.system = nullptr});
    drawing.addText({0, 0, 0}, L"remark");
    EXPECT_EQ(begin().CollectEntities(), 0);
    EXPECT_EQ(begin().CollectEntitiesOnly(), 1);
}

TEST_P(CollectEntities, PoolsKeepTheOrderOfTheDrawing) {
    const AcDbObjectId w1 = drawing.addWell({0, 0, 0});
    const AcDbObjectId p1 = drawing.addPipe({0, 0, 0}, {9, 0, 0});
    const AcDbObjectId t1 = drawing.addTank({0, 0, 0}, {5, 5, 0});
    const AcDbObjectId p2 = drawing.addPipe({-9, 0, 0}, {0, 0, 0});
    const AcDbObjectId w2 = drawing.addWell({-9, 0, 0});
    const AcDbObjectId t2 = drawing.addTank({50, 0, 0}, {55, 5, 0});
    const auto& context = begin();
    EXPECT_EQ(search->CollectEntities(), 1);
    EXPECT_EQ(idsIn(context.pipePool), (Ids{p1, p2}));
    EXPECT_EQ(idsIn(context.wellPool), (Ids{w1, w2}));
    EXPECT_EQ(idsIn(context.tankPool), (Ids{t1, t2}));
}

TEST_P(CollectEntities, EntityThatAnotherHasOpenForWritingCarriesNothing) {
    const AcDbObjectId first = drawing.addPipe({0, 0, 0}, {9, 0, 0});
    const AcDbObjectId changed = drawing.addPipe({9, 0, 0}, {18, 0, 0});
    const AcDbObjectId last = drawing.addPipe({18, 0, 0}, {27, 0, 0});
    AcDbObject* writer = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(writer, changed, AcDb::kForWrite, false), Acad::eOk);
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->pipePool), (Ids{first, last}));
    writer->close();
}

TEST_P(CollectEntities, OneSelectionIsTakenAndGivenBack) {
    drawing.addPipe({0, 0, 0}, {9, 0, 0});
    drawing.addWell({0, 0, 0});
    drawing.addTank({50, 0, 0}, {55, 5, 0});
    auto& context = begin();
    const host::HostRecorder recorder;
    EXPECT_EQ(context.CollectEntities(), 1);
    EXPECT_EQ(recorder.linesOf(L"select"), std::vector<std::wstring>{L"select X 3"});
    EXPECT_EQ(recorder.linesOf(L"free"), std::vector<std::wstring>{L"free"});
}

TEST_P(CollectEntities, EverySystemIsCollected) {
    drawing.addPipe({0, 0, 0}, {9, 0, 0}, {.system = kSewer});
    drawing.addPipe({0, 5, 0}, {9, 5, 0}, {.system = kSupply});
    drawing.addWell({0, 0, 0}, {.system = kStorm});
    const auto& context = begin();
    EXPECT_EQ(search->CollectEntities(), 1);
    ASSERT_EQ(context.pipePool.Size(), 2);
    EXPECT_EQ(utf8(context.pipePool[0].systemName), "污水");
    EXPECT_EQ(utf8(context.pipePool[1].systemName), "给水");
    ASSERT_EQ(context.wellPool.Size(), 1);
    EXPECT_EQ(utf8(context.wellPool[0].systemName), "雨水");
    EXPECT_TRUE(context.wellPool[0].note.IsEmpty());
}

TEST_P(CollectEntities, PipeOfLengthOneOrLessIsDropped) {
    drawing.addPipe({0, 0, 0}, {1, 0, 0});
    drawing.addPipe({0, 5, 0}, {0.5, 5, 0});
    drawing.addPipe({0, 6, 0}, {0, 6, 0});
    const AcDbObjectId kept = drawing.addPipe({0, 7, 0}, {1.0009765625, 7, 0});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->pipePool), Ids{kept});
}

TEST_P(CollectEntities, LengthAndNotValidityKeepsAPipe) {
    // An arc that goes nearly all round: its ends are 0.5 apart, so it has no direction, but it is
    // 7.43 long.
    const AcDbObjectId id = drawing.addArcPipe({0, 0, 0}, {0.5, 0, 0}, 10.0);
    EXPECT_EQ(begin().CollectEntities(), 1);
    ASSERT_EQ(idsIn(search->pipePool), Ids{id});
    EXPECT_EQ(search->pipePool[0].valid, 0);
}

TEST_P(CollectEntities, SelectionOfDroppedPipesAloneStillSucceeds) {
    drawing.addPipe({0, 0, 0}, {1, 0, 0});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_TRUE(search->pipePool.IsEmpty());
}

TEST_P(CollectEntities, PipeNameIsTestedFirst) {
    const AcDbObjectId line = drawing.addPipe({0, 0, 0}, {9, 0, 0});
    drawing.setText(line, L"管井系统", kSewer);
    drawing.setText(line, L"池体", L"1");
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->pipePool), Ids{line});
    EXPECT_TRUE(search->wellPool.IsEmpty());
    EXPECT_TRUE(search->tankPool.IsEmpty());
}

TEST_P(CollectEntities, BlockWithThePipeNameIsNoWell) {
    // It is taken for a pipe, has no length as one, and is dropped.
    drawing.addBlock({0, 0, 0}, L"ANY", {{L"管道系统", kSewer}, {L"管井系统", kSewer}});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_TRUE(search->pipePool.IsEmpty());
    EXPECT_TRUE(search->wellPool.IsEmpty());
}

TEST_P(CollectEntities, WellNameIsTestedBeforeTheTankName) {
    const AcDbObjectId id =
        drawing.addBlock({0, 0, 0}, L"ANY", {{L"池体", L"1"}, {L"管井系统", kSewer}});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->wellPool), Ids{id});
    EXPECT_TRUE(search->tankPool.IsEmpty());
}

TEST_P(CollectEntities, NameWithoutTextIsEnough) {
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {9, 0, 0}, {.system = L""});
    const AcDbObjectId well = drawing.addBlock({0, 0, 0}, L"ANY");
    drawing.setApplicationAlone(well, L"管井系统");
    const AcDbObjectId tank = drawing.addTank({0, 0, 0}, {5, 5, 0}, {.tank = L""});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->pipePool), Ids{pipe});
    EXPECT_EQ(idsIn(search->wellPool), Ids{well});
    EXPECT_EQ(idsIn(search->tankPool), Ids{tank});
    EXPECT_TRUE(search->pipePool[0].systemName.IsEmpty());
    EXPECT_TRUE(search->wellPool[0].systemName.IsEmpty());
}

TEST_P(CollectEntities, TankKeepsAnEmptySystemWhateverItCarries) {
    drawing.addTank({0, 0, 0}, {5, 5, 0}, {.tank = kSewer, .system = kSewer});
    EXPECT_EQ(begin().CollectEntities(), 1);
    ASSERT_EQ(search->tankPool.Size(), 1);
    EXPECT_TRUE(search->tankPool[0].systemName.IsEmpty());
}

TEST_P(CollectEntities, TankByItsLongNameAloneIsNotCollected) {
    drawing.addWell({0, 0, 0});
    drawing.addTank({0, 0, 0}, {5, 5, 0}, {.tank = nullptr});
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_TRUE(search->tankPool.IsEmpty());
}

TEST_P(CollectEntities, ErasedEntitiesAreNotCollected) {
    const AcDbObjectId gone = drawing.addWell({0, 0, 0});
    const AcDbObjectId there = drawing.addWell({9, 0, 0});
    drawing.erase(gone);
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(idsIn(search->wellPool), Ids{there});
}

TEST_P(CollectEntities, NothingStaysOpenAndNoListIsLeft) {
    drawing.addWell({0, 0, 0});
    drawing.addPipe({0, 0, 0}, {9, 0, 0});
    const std::size_t before = host_db::liveResultBuffers();
    EXPECT_EQ(begin().CollectEntities(), 1);
    EXPECT_EQ(host_db::liveResultBuffers(), before);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

} // namespace
} // namespace module_tests
