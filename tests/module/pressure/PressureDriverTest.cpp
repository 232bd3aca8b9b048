// The driver: what a search collects, where it fails, and what it leaves behind then.

#include "module/pressure/PressureTest.h"
#include "TKVltSearchModule18.h"

namespace module_tests {

using tkvlt::PressureNetworkSearch;

namespace {

/// Reaches how a search classifies one entity, selected or not: an explicit instantiation may name
/// what is private.
using Classify = void (PressureNetworkSearch::*)(const AcDbObjectId&);
Classify classifyMember();
template<Classify member>
struct ClassifyAccess {
    friend Classify classifyMember() { return member; }
};
template struct ClassifyAccess<&PressureNetworkSearch::AddToPool>;

class PressureDriverTest : public PressureTest {
protected:
    /// A pipe of 给水 that belongs to a block definition, so that no selection finds it.
    AcDbObjectId addPipeInsideABlock() {
        const AcDbObjectId block = drawing.defineBlock(L"DETAIL", {0, 0, 0}, {1, 1, 0});
        AcDbObject* record = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(record, block, AcDb::kForWrite), Acad::eOk);
        auto* line = new AcDbLine({0, 0, 0}, {10, 0, 0});
        AcDbObjectId id;
        EXPECT_EQ(static_cast<AcDbBlockTableRecord*>(record)->appendAcDbEntity(id, line),
                  Acad::eOk);
        line->close();
        record->close();
        drawing.setText(id, L"管道系统", kSupply);
        return id;
    }

    void expectRefusedUntouched(AcDbObjectId picked, const AcGePoint3d& at = {}) {
        segs.RemoveAll();
        PressureSeg mark;
        mark.parent = 77;
        segs.Add(mark);
        rootSeg = -7;
        EXPECT_EQ(GetPressureNetwork(segs, picked, at, rootSeg), 0);
        ASSERT_EQ(count(), 1);
        EXPECT_EQ(seg(0).parent, 77);
        EXPECT_EQ(seg(0).children.GetSize(), 0);
        EXPECT_EQ(rootSeg, -7);
    }

    /// A square of 10 that hangs on a pipe of 10 at its left lower corner, with a meter on the
    /// pipe.
    AcDbObjectId drawClosedNetwork() {
        const AcDbObjectId picked = drawing.main({-10, 0, 0}, {0, 0, 0});
        drawing.main({0, 0, 0}, {10, 0, 0});
        drawing.main({10, 0, 0}, {10, 10, 0});
        drawing.main({10, 10, 0}, {0, 10, 0});
        drawing.main({0, 10, 0}, {0, 0, 0});
        drawing.meter({-5, 0, 0});
        drawing.valve({-3, 0, 0});
        return picked;
    }
};

} // namespace

TEST_F(PressureDriverTest, WellIsNoStart) {
    drawing.main({0, 0, 0}, {10, 0, 0});
    expectRefusedUntouched(drawing.well({0, 0, 0}));
}

TEST_F(PressureDriverTest, TankIsNoStart) {
    drawing.main({0, 0, 0}, {10, 0, 0});
    expectRefusedUntouched(drawing.addTank({-5, -5, 0}, {0, 0, 0}, {.system = kSupply}));
}

TEST_F(PressureDriverTest, PlainLineIsNoStart) {
    drawing.main({0, 0, 0}, {10, 0, 0});
    expectRefusedUntouched(drawing.addEntity(new AcDbLine({0, 0, 0}, {10, 0, 0})));
}

TEST_F(PressureDriverTest, NoEntityIsNoStart) {
    drawing.main({0, 0, 0}, {10, 0, 0});
    expectRefusedUntouched({});
}

TEST_F(PressureDriverTest, PipeWithAnEmptySystemNameIsNoStart) {
    const AcDbObjectId empty = drawing.addPipe({0, 0, 0}, {10, 0, 0}, {.system = L""});
    const AcDbObjectId alone = drawing.addEntity(new AcDbLine({0, 5, 0}, {10, 5, 0}));
    drawing.setApplicationAlone(alone, L"管道系统");
    expectRefusedUntouched(empty);
    expectRefusedUntouched(alone);
}

TEST_F(PressureDriverTest, PickedPipeOfOneUnitIsNotCollected) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {1, 0, 0});
    drawing.main({1, 0, 0}, {1, 10, 0});
    drawing.main({0, 0, 0}, {0, 10, 0});
    expectRefusedUntouched(picked);
}

/// It has a system, but nothing at all is there to be collected.
TEST_F(PressureDriverTest, PipeInADrawingWithoutAnySelectedEntityIsNoStart) {
    const AcDbObjectId hidden = addPipeInsideABlock();
    CString system;
    ASSERT_NE(GetXdata(hidden, L"管道系统", system), 0);
    ASSERT_EQ(utf8(system), "给水");
    expectRefusedUntouched(hidden);
}

/// It cannot be opened as a curve, has no length then and is dropped; the others are collected.
TEST_F(PressureDriverTest, PipeThatIsNoCurveIsDropped) {
    const AcDbObjectId block = drawing.addBlock({0, 0, 0}, L"ANY", {{L"管道系统", kSupply}});
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    EXPECT_TRUE(holds(collected(pipe)->pipePool, {{pipe, {0, 0, 0}, {10, 0, 0}, 1}}));
    expectRefusedUntouched(block);
}

/// It cannot be opened as a block. What is read by its id alone is there, the rest is default.
TEST_F(PressureDriverTest, WellThatIsNoBlockStaysWithItsDefaults) {
    const AcDbObjectId pipe = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId line = drawing.addEntity(new AcDbLine({7, 7, 0}, {8, 8, 0}),
                                                {{L"管井系统", kSupply}, {L"井的直径", L"3"}});
    const auto search = collected(pipe);
    ASSERT_EQ(search->wellPool.Size(), 1);
    const _Block& well = search->wellPool[0];
    EXPECT_EQ(well.id, line);
    EXPECT_EQ(well.valid, 0);
    EXPECT_EQ(utf8(well.systemName), "给水");
    EXPECT_EQ(well.radius, 1.5);
    EXPECT_TRUE(samePoint(well.position, {0, 0, 0}, 0));
    EXPECT_EQ(well.rotation, 0.0);
    EXPECT_EQ(well.isSquareWell, 0);
    EXPECT_TRUE(well.layer.IsEmpty());
    EXPECT_TRUE(well.handle.IsEmpty());
}

/// No piece is nearer than 1e24, so none is the root.
TEST_F(PressureDriverTest, PickFartherThanAnythingIsRefused) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    expectRefusedUntouched(picked, {2e24, 0, 0});
    expectRefusedUntouched(picked, {1e24, 0, 0}); // the bound itself does not count
    EXPECT_EQ(search(picked, {0.9e24, 0, 0}), 1);
    EXPECT_EQ(count(), 1);
}

TEST_F(PressureDriverTest, CollectingFromADrawingWithoutAnyFails) {
    const AcDbObjectId plain = drawing.addEntity(new AcDbLine({0, 0, 0}, {10, 0, 0}));
    PressureNetworkSearch search(segs, plain, {}, rootSeg);
    EXPECT_EQ(search.CollectEntities(), 0);
}

TEST_F(PressureDriverTest, CollectingAWellAloneSucceedsAndFindingThePipeFails) {
    PressureNetworkSearch search(segs, drawing.well({0, 0, 0}), {}, rootSeg);
    EXPECT_NE(search.CollectEntities(), 0);
    EXPECT_EQ(search.FindPickedPipe(), 0);
}

TEST_F(PressureDriverTest, RootIsNotFoundWithoutAPieceOfThePickedPipe) {
    drawing.main({0, 0, 0}, {10, 0, 0});
    PressureNetworkSearch search(segs, drawing.well({0, 0, 0}), {}, rootSeg);
    EXPECT_NE(search.CollectEntities(), 0);
    EXPECT_EQ(search.BuildSegments(), 0);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(rootSeg, -7);
}

TEST_F(PressureDriverTest, CollectsPipesOfThePickedSystemLongerThanOneInDrawingOrder) {
    const AcDbObjectId second = drawing.main({0, 5, 0}, {1.001, 5, 0});
    drawing.main({0, 6, 0}, {1, 6, 0});                           // one unit
    drawing.addPipe({0, 7, 0}, {10, 7, 0}, {.system = kSewer});   // another system
    drawing.addPipe({0, 8, 0}, {10, 8, 0}, {.system = L"给水 "}); // a name compares exactly
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0});
    const auto search = collected(first);
    EXPECT_TRUE(holds(search->pipePool,
                      {{second, {0, 5, 0}, {1.001, 5, 0}, 1}, {first, {0, 0, 0}, {10, 0, 0}, 1}}));
    EXPECT_NE(search->FindPickedPipe(), 0);
    EXPECT_EQ(utf8(search->systemName), "给水");
}

/// The half circle with a chord of 0.9 is 0.45 pi = 1.41 long.
TEST_F(PressureDriverTest, LengthOfAnArcIsThatOfItsCurve) {
    const AcDbObjectId picked = drawing.arc({0, 0, 0}, {0.9, 0, 0}, 1.0);
    EXPECT_NE(collected(picked)->FindPickedPipe(), 0);
}

TEST_F(PressureDriverTest, CollectsWellsOfAllSystems) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.addWell({0, 0, 0}, {.system = kSewer});
    drawing.addWell({10, 0, 0}, {.diameter = L"3", .system = kSupply});
    const auto search = collected(picked);
    ASSERT_EQ(search->wellPool.Size(), 2);
    EXPECT_EQ(utf8(search->wellPool[0].systemName), "污水");
    EXPECT_EQ(utf8(search->wellPool[1].systemName), "给水");
    EXPECT_EQ(search->wellPool[1].radius, 1.5);
    EXPECT_TRUE(search->wellPool[0].note.IsEmpty());
}

/// Whoever carries the pipe name is a pipe, kept or not, and nothing else any more.
TEST_F(PressureDriverTest, EntityThatIsPipeAndWellIsAPipe) {
    const AcDbObjectId both = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.setText(both, L"管井系统", kSupply);
    const AcDbObjectId foreign = drawing.addPipe({0, 5, 0}, {10, 5, 0}, {.system = kSewer});
    drawing.setText(foreign, L"管井系统", kSupply);
    const auto search = collected(both);
    EXPECT_TRUE(holds(search->pipePool, {{both, {0, 0, 0}, {10, 0, 0}, 1}}));
    EXPECT_EQ(search->wellPool.Size(), 0);
}

TEST_F(PressureDriverTest, TanksAreNotCollected) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.addTank({10, -1, 0}, {12, 1, 0}, {.system = kSupply});
    const auto search = collected(picked);
    EXPECT_EQ(search->wellPool.Size(), 0);
    EXPECT_EQ(search->outflowPool.Size(), 0);
}

/// A block with the flag alone is not selected at all, and one that is a well too is a well.
TEST_F(PressureDriverTest, TemporaryOutflowChangesNothing) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    drawing.addBlock({5, 0, 0}, L"OUTFLOW", {{L"临时出流标志", L"0"}});
    drawing.addBlock({6, 0, 0}, L"OUTFLOW",
                     {{L"临时出流标志", L"0"}, {L"管井系统", kSupply}, {L"井的直径", L"1"}});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(samePoint(seg(0).endPoint, {10, 0, 0}));
    EXPECT_EQ(seg(0).outputPoints.GetSize(), 0);
    EXPECT_EQ(seg(0).outputIds.GetSize(), 0);
    EXPECT_EQ(seg(0).outputValues.GetSize(), 0);
}

TEST_F(PressureDriverTest, NoStepReadsTheOutflowPool) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId outflow =
        drawing.addBlock({5, 0, 0}, L"VLT_WELL_15", {{L"临时出流标志", L"0"}});
    const auto search = collected(picked);
    search->outflowPool.Add(_Block(outflow, CString(), CString()));
    EXPECT_NE(search->FindPickedPipe(), 0);
    EXPECT_NE(search->PreparePipes(), 0);
    EXPECT_NE(search->BuildSegments(), 0);
    EXPECT_NE(search->CheckNoLoops(), 0);
    EXPECT_NE(search->AttachWells(), 0);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(seg(0).outputPoints.GetSize(), 0);
    EXPECT_EQ(seg(0).meterIds.length(), 0);
    ASSERT_TRUE(search->outflowPool.Has(0));
    EXPECT_EQ(search->outflowPool[0].id, outflow);
}

/// No selection hands these over, since it finds wells and pipes alone.
TEST_F(PressureDriverTest, BlockWithTheOutflowFlagZeroIsAnOutflow) {
    PressureNetworkSearch search(segs, {}, {}, rootSeg);
    const auto classify = [&](AcDbObjectId id) { (search.*classifyMember())(id); };
    for (const wchar_t* flag : {L"1", L"", L"00", L"0.0", L" 0", L"0 "}) {
        classify(drawing.addBlock({5, 0, 0}, L"OUTFLOW", {{L"临时出流标志", flag}}));
    }
    EXPECT_EQ(search.outflowPool.Size(), 0);
    const AcDbObjectId outflow =
        drawing.addBlock({6, 2, 0}, L"OUTFLOW", {{L"临时出流标志", L"0"}, {L"井的直径", L"3"}});
    classify(outflow);
    ASSERT_EQ(search.outflowPool.Size(), 1);
    EXPECT_EQ(search.outflowPool[0].id, outflow);
    EXPECT_TRUE(samePoint(search.outflowPool[0].position, {6, 2, 0}));
    EXPECT_EQ(search.outflowPool[0].radius, 1.5);
    EXPECT_TRUE(search.outflowPool[0].systemName.IsEmpty());
    EXPECT_TRUE(search.outflowPool[0].note.IsEmpty());
    EXPECT_EQ(search.pipePool.Size() + search.wellPool.Size(), 0);
}

TEST_F(PressureDriverTest, TankIsNoOutflowUnderItsShortNameAlone) {
    PressureNetworkSearch search(segs, {}, {}, rootSeg);
    const auto classify = [&](AcDbObjectId id) { (search.*classifyMember())(id); };
    classify(drawing.addBlock({5, 0, 0}, L"TANK", {{L"池体", L"1"}, {L"临时出流标志", L"0"}}));
    EXPECT_EQ(search.outflowPool.Size(), 0);
    classify(drawing.addBlock({5, 0, 0}, L"TANK", {{L"池体系统", L"1"}, {L"临时出流标志", L"0"}}));
    EXPECT_EQ(search.outflowPool.Size(), 1);
    EXPECT_EQ(search.wellPool.Size(), 0);
}

TEST_F(PressureDriverTest, SettingsAreReadOnceAtConstruction) {
    drawing.setDwgScale(3.0);
    drawing.setBreakDist(0.25);
    drawing.setLengthMode(2);
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    const auto search = collected(picked);
    drawing.setDwgScale(1.0);
    drawing.setBreakDist(0.1);
    drawing.setLengthMode(0);
    EXPECT_EQ(search->dwgScale, 3.0);
    EXPECT_EQ(search->breakDist, 0.25);
    EXPECT_EQ(search->lengthMode, 2);
}

TEST_F(PressureDriverTest, PipeOfAnotherSystemIsNeverSeen) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.addPipe({5, -5, 0}, {5, 5, 0}, {.system = kSewer});
    drawing.addPipe({10, 0, 0}, {10, 10, 0}, {.system = kSewer});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(intsOf(seg(0).orientationFlags), std::vector<int>{1});
}

TEST_F(PressureDriverTest, ClosedNetworkLeavesTheTreeWithoutMetersAndValves) {
    const AcDbObjectId picked = drawClosedNetwork();
    EXPECT_EQ(search(picked, {-10, 0, 0}), 0);
    EXPECT_EQ(rootSeg, 0);
    EXPECT_EQ(count(), 5);
    for (int i = 0; i < count(); ++i) {
        EXPECT_EQ(seg(i).meterIds.length() + seg(i).valveIds.length(), 0) << i;
    }
}

TEST_F(PressureDriverTest, EntryDropsTheObjectOfAClosedNetwork) {
    AcDbObjectId picked = drawClosedNetwork();
    AcDbObjectId none;
    SearchObject* object = nullptr;
    EXPECT_EQ(GetSearchInformation(object, picked, none, {-10, 0, 0}), 0);
    EXPECT_EQ(object, nullptr);
}

TEST_F(PressureDriverTest, EntryGivesAPressureObject) {
    AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    AcDbObjectId none;
    SearchObject* object = nullptr;
    ASSERT_EQ(GetSearchInformation(object, picked, none, {}), 1);
    const std::unique_ptr<SearchObject> owner(object);
    ASSERT_EQ(object->GetRuntimeClass(), PressureSearchObject::GetThisClass());
    auto& network = static_cast<PressureSearchObject&>(*object);
    EXPECT_EQ(network.rootSeg, 0);
    ASSERT_EQ(network.segs.GetSize(), 1);
    EXPECT_EQ(idsOf(network.segs[0].pipeIds), Ids{picked});
}

/// The root stands behind the old content, is called 0 all the same, and the walk begins at the
/// old entry 0, whose search point is (50, 0).
///
///   [0] 40--50 +---hung     P 0--10 picked +---near
TEST_F(PressureDriverTest, ArrayThatHoldsSegmentsIsWalkedFromItsFirst) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId hung = drawing.main({50, 0, 0}, {50, 10, 0});
    PressureSeg old;
    old.startPoint = {40, 0, 0};
    old.endPoint = {50, 0, 0};
    old.line.set(old.startPoint, old.endPoint);
    old.systemName = kSupply;
    segs.Add(old);
    EXPECT_EQ(GetPressureNetwork(segs, picked, {0, 0, 0}, rootSeg), 1);
    EXPECT_EQ(rootSeg, 0);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(intsOf(seg(0).children), std::vector<int>{2});
    EXPECT_EQ(pipes(1), Ids{picked});
    EXPECT_EQ(seg(1).parent, -1);
    EXPECT_EQ(seg(1).children.GetSize(), 0) << "nobody walks from the root";
    EXPECT_EQ(pipes(2), Ids{hung});
    EXPECT_EQ(seg(2).parent, 0);
}

/// The old entry ends on what it gets to hold: the closing test looks at old entries too.
TEST_F(PressureDriverTest, OldEntriesCountInTheClosingTest) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    PressureSeg old;
    old.endPoint = {10, 0.5, 0};
    old.line.set(AcGePoint3d(10, 10, 0), old.endPoint);
    segs.Add(old);
    EXPECT_EQ(GetPressureNetwork(segs, picked, {0, 0, 0}, rootSeg), 0);
    EXPECT_EQ(rootSeg, 0);
    EXPECT_EQ(count(), 2);
}

TEST_F(PressureDriverTest, SearchOfItsOwnDrawingIsRepeatable) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({5, 0, 0}, {5, 5, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    const std::vector<int> first = parents();
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(parents(), first);
    EXPECT_EQ(count(), 3);
}

} // namespace module_tests
