#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <memory>
#include <string>

namespace module_tests {
namespace {

class SearchEntry : public DrawingTest {
protected:
    ~SearchEntry() override {
        if (object != &stale) {
            delete object;
        }
    }

    int search(AcDbObjectId start, AcDbObjectId end = AcDbObjectId()) {
        return GetSearchInformation(object, start, end, {0, 0, 0});
    }

    std::string className() const {
        return object == nullptr ? "none" : object->GetRuntimeClass()->m_lpszClassName;
    }

    /// Two wells a hundred apart with a pipe between them.
    void drawGravityNetwork(const wchar_t* system = kSewer) {
        first = drawing.addWell({0, 0, 0}, {.system = system});
        second = drawing.addWell({100, 0, 0}, {.system = system});
        pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.system = system});
    }

    GravitySearchObject stale; ///< what a careless caller's pointer still shows to
    SearchObject* object = nullptr;
    AcDbObjectId first;
    AcDbObjectId second;
    AcDbObjectId pipe;
};

TEST_F(SearchEntry, EntityWithoutAnyOfTheThreeNamesGivesZeroAndLeavesTheObject) {
    object = &stale;
    EXPECT_EQ(search(drawing.addPipe({0, 0, 0}, {9, 0, 0}, {.system = nullptr})), 0);
    EXPECT_EQ(object, &stale);
    EXPECT_EQ(search(AcDbObjectId()), 0);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, ShortTankNameAloneGivesZero) {
    object = &stale;
    EXPECT_EQ(search(drawing.addTank({0, 0, 0}, {5, 5, 0}, {.system = nullptr})), 0);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, NamesWithEmptyTextsGiveZero) {
    object = &stale;
    const AcDbObjectId id = drawing.addBlock(
        {0, 0, 0}, L"ANY", {{L"管井系统", L""}, {L"池体系统", L""}, {L"管道系统", L""}});
    EXPECT_EQ(search(id), 0);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, SystemUnknownToTheSettingsGivesOneAndLeavesTheObject) {
    object = &stale;
    EXPECT_EQ(search(drawing.addWell({0, 0, 0}, {.system = L"燃气"})), 1);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, MissingSettingsGiveOneAndLeaveTheObject) {
    drawGravityNetwork();
    drawing.removePipeSystems();
    object = &stale;
    EXPECT_EQ(search(first), 1);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, GravitySearchThatSucceedsGivesTheNetwork) {
    drawGravityNetwork();
    ASSERT_EQ(search(first), 1);
    ASSERT_EQ(className(), "GravitySearchObject");
    const auto* network = static_cast<GravitySearchObject*>(object);
    EXPECT_EQ(network->rootWell, 0);
    ASSERT_EQ(network->wells.GetSize(), 2);
    EXPECT_EQ(network->wells.GetAt(0).nodeEntity, first);
    EXPECT_EQ(network->wells.GetAt(1).nodeEntity, second);
    ASSERT_EQ(network->segs.GetSize(), 1);
    EXPECT_EQ(idsOf(network->segs.GetAt(0).pipeIds), Ids{pipe});
    EXPECT_EQ(network->pathWells.GetSize(), 0);
}

TEST_F(SearchEntry, GravitySearchReadsTheEnd) {
    drawGravityNetwork();
    ASSERT_EQ(search(first, second), 1);
    const auto* network = static_cast<GravitySearchObject*>(object);
    EXPECT_EQ(intsOf(network->pathWells), (std::vector<int>{1, 0}));
    EXPECT_EQ(intsOf(network->pathSegs), std::vector<int>{0});
}

TEST_F(SearchEntry, GravitySearchUsesThePoint) {
    drawGravityNetwork();
    AcDbObjectId none;
    ASSERT_EQ(GetSearchInformation(object, pipe, none, {90, 0, 0}), 1);
    EXPECT_EQ(static_cast<GravitySearchObject*>(object)->wells.GetAt(0).nodeEntity, second);
}

TEST_F(SearchEntry, GravitySearchFromATankGivesTheNetwork) {
    const AcDbObjectId tank = drawing.addTank({-5, -5, 0}, {5, 5, 0});
    drawing.addWell({100, 0, 0});
    drawing.addPipe({5, 0, 0}, {100, 0, 0});
    ASSERT_EQ(search(tank), 1);
    EXPECT_EQ(static_cast<GravitySearchObject*>(object)->wells.GetAt(0).nodeEntity, tank);
}

TEST_F(SearchEntry, GravitySearchThatFailsGivesZeroAndNullWhateverThePointerWas) {
    drawing.addPipe({50, 50, 0}, {60, 50, 0});
    const AcDbObjectId lonely = drawing.addWell({0, 0, 0});
    object = &stale;
    EXPECT_EQ(search(lonely), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(stale.rootWell, -1); // not freed, nor used
}

TEST_F(SearchEntry, WellNameGoesBeforeThePipeName) {
    const AcDbObjectId both =
        drawing.addBlock({0, 0, 0}, L"ANY", {{L"管道系统", kSewer}, {L"管井系统", L"燃气"}});
    object = &stale;
    EXPECT_EQ(search(both), 1); // the unknown system of the well name
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, WellNameGoesBeforeTheTankName) {
    const AcDbObjectId both =
        drawing.addBlock({0, 0, 0}, L"ANY", {{L"池体系统", kSewer}, {L"管井系统", L"燃气"}});
    object = &stale;
    EXPECT_EQ(search(both), 1);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, TankNameGoesBeforeThePipeName) {
    const AcDbObjectId both =
        drawing.addBlock({0, 0, 0}, L"ANY", {{L"管道系统", kSewer}, {L"池体系统", L"燃气"}});
    object = &stale;
    EXPECT_EQ(search(both), 1);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, WellNameWithEmptyTextMovesOnToTheNextName) {
    const AcDbObjectId id =
        drawing.addBlock({0, 0, 0}, L"ANY", {{L"管井系统", L""}, {L"管道系统", L"燃气"}});
    object = &stale;
    EXPECT_EQ(search(id), 1); // asked for its pipe system, which is unknown
    const AcDbObjectId bare = drawing.addBlock({0, 0, 0}, L"ANY", {{L"池体系统", L"燃气"}});
    drawing.setApplicationAlone(bare, L"管井系统");
    EXPECT_EQ(search(bare), 1);
    EXPECT_EQ(object, &stale);
}

TEST_F(SearchEntry, LineThatIsWellAndPipeStartsAsAWellAndFails) {
    // It is collected as a pipe, so the well to start from is missing.
    drawGravityNetwork();
    drawing.setText(pipe, L"管井系统", kSewer);
    EXPECT_EQ(search(pipe), 0);
    EXPECT_EQ(object, nullptr);
}

TEST_F(SearchEntry, PressureSearchThatSucceedsGivesTheNetwork) {
    pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.system = kSupply});
    ASSERT_EQ(search(pipe), 1);
    EXPECT_EQ(className(), "PressureSearchObject");
    EXPECT_EQ(object->GetRuntimeClass()->m_pfnGetBaseClass(), SearchObject::GetThisClass());
}

TEST_F(SearchEntry, PressureSearchIgnoresTheEnd) {
    pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.system = kSupply});
    EXPECT_EQ(search(pipe, pipe), 1); // a gravity search would refuse equal ends
    EXPECT_EQ(className(), "PressureSearchObject");
}

TEST_F(SearchEntry, PressureSearchThatFailsGivesZeroAndNull) {
    drawing.addPipe({0, 0, 0}, {100, 0, 0}, {.system = kSupply});
    object = &stale;
    // A well carries no pipe system, from which a pressure search starts.
    EXPECT_EQ(search(drawing.addWell({0, 0, 0}, {.system = kSupply})), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(stale.rootWell, -1);
}

} // namespace
} // namespace module_tests
