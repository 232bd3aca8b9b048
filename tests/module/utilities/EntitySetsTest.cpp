#include "UtilitiesTest.h"

#include "utilities/EntitySets.h"

namespace module_tests {
namespace {

class EntitySetsTest : public UtilitiesTest {
protected:
    void TearDown() override {
        acedSSFree(set);
        UtilitiesTest::TearDown();
    }

    Ids members() {
        AcDbObjectIdArray ids;
        PelSS2IdArr(set, ids);
        return idsOf(ids);
    }

    Adesk::Int32 length() {
        Adesk::Int32 count = -1;
        EXPECT_EQ(acedSSLength(set, &count), RTNORM);
        return count;
    }

    AcDbObjectId lineOf(const wchar_t* system) {
        PipeTexts texts;
        texts.system = system;
        return drawing.addPipe({0, 0, 0}, {1, 0, 0}, texts);
    }

    ads_name set = {0, 0};
};

TEST_F(EntitySetsTest, WhatDoesNotCarryTheValueIsTakenOut) {
    const AcDbObjectId a = lineOf(kSewer);
    const AcDbObjectId b = lineOf(kStorm);
    const AcDbObjectId c = lineOf(kStorm);
    const AcDbObjectId d = lineOf(kSewer);
    select({b, c, a, d, lineOf(nullptr)}, set); // two misfits side by side
    PelPurePipeSS(set, L"管道系统", kSewer);
    EXPECT_EQ(members(), (Ids{a, d}));
    EXPECT_EQ(length(), 2);
}

TEST_F(EntitySetsTest, MissingTextEqualsAnEmptyValue) {
    const AcDbObjectId bare = lineOf(nullptr);
    select({lineOf(kSewer), bare}, set);
    PelPurePipeSS(set, L"管道系统", L"");
    EXPECT_EQ(members(), Ids{bare});
}

TEST_F(EntitySetsTest, ValuesAreComparedWithRegardToCase) {
    select({lineOf(L"abc")}, set);
    PelPurePipeSS(set, L"管道系统", L"ABC");
    EXPECT_EQ(length(), 0);
}

TEST_F(EntitySetsTest, EmptySetStaysEmpty) {
    select({}, set);
    PelPurePipeSS(set, L"管道系统", kSewer);
    EXPECT_EQ(length(), 0);
}

TEST_F(EntitySetsTest, IdsAreAppendedInSetOrder) {
    const AcDbObjectId a = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId b = addLine({2, 0, 0}, {3, 0, 0});
    select({b, a}, set);
    AcDbObjectIdArray ids;
    ids.append(a);
    EXPECT_EQ(PelSS2IdArr(set, ids), 1);
    EXPECT_EQ(idsOf(ids), (Ids{a, b, a}));
}

TEST_F(EntitySetsTest, EmptyOrUnknownSetGivesNoIds) {
    AcDbObjectIdArray ids;
    select({}, set);
    EXPECT_EQ(PelSS2IdArr(set, ids), 0);
    ads_name unknown = {12345, 6};
    EXPECT_EQ(PelSS2IdArr(unknown, ids), 0);
    EXPECT_EQ(ids.length(), 0);
}

TEST_F(EntitySetsTest, EntitiesOfASetAreErasedAndTheSetStaysTheCallers) {
    const AcDbObjectId a = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId b = addLine({2, 0, 0}, {3, 0, 0});
    const AcDbObjectId kept = addLine({4, 0, 0}, {5, 0, 0});
    select({a, b}, set);
    forget();
    PelDeleteSS(set);
    EXPECT_EQ(events("free"), Lines{});
    EXPECT_EQ(events("erase"), (Lines{"erase " + handleOf(a), "erase " + handleOf(b)}));
    EXPECT_EQ(entities(), Ids{kept});
    EXPECT_EQ(length(), 2);
}

TEST_F(EntitySetsTest, EntityThatCannotBeErasedDoesNotKeepTheRest) {
    const AcDbObjectId held = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId other = addLine({2, 0, 0}, {3, 0, 0});
    select({held, other}, set);
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, held, AcDb::kForRead), Acad::eOk);
    PelDeleteSS(set);
    reader->close();
    EXPECT_EQ(entities(), Ids{held});
}

TEST_F(EntitySetsTest, UnknownSetErasesNothing) {
    const AcDbObjectId kept = addLine({4, 0, 0}, {5, 0, 0});
    ads_name unknown = {12345, 6};
    PelDeleteSS(unknown);
    EXPECT_EQ(entities(), Ids{kept});
}

} // namespace
} // namespace module_tests
