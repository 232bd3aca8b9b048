#include "host/editor/CommandFixture.h"

#include "database/UndoJournal.h"

#include <random>

namespace {

class MalformedCommandTest : public CommandFixture {
protected:
    MalformedCommandTest() {
        line_ = addLine({0, 0, 0}, {10, 0, 0});
        circle_ = addCircle({5, 0, 0}, 2.0);
        acedCommand(RTSTR, L"redraw", 0);
        before_ = dumpOf(database());
    }

    /// The list is released. RTERROR, and the drawing is as it was.
    void expectRefused(resbuf* chain) {
        EXPECT_EQ(acedCmd(chain), RTERROR);
        acutRelRb(chain);
        EXPECT_EQ(dumpOf(database()), before_);
        EXPECT_FALSE(database().undoJournal().hasRunningChanges());
    }

    AcDbObjectId line_;
    AcDbObjectId circle_;
    AcGePoint3d at_{5, 0, 0};
    std::vector<std::string> before_;
};

TEST_F(MalformedCommandTest, AnUnknownCommandIsAnError) {
    expectRefused(acutBuildList(RTSTR, L"explode", RTENAME, Name(line_).name, RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trimm", 0));
    expectRefused(acutBuildList(RTPOINT, asDblArray(at_), 0));
    expectRefused(acutBuildList(RTSHORT, 5, 0));
    expectRefused(acutBuildList(RTSTR, L"_", 0));
}

TEST_F(MalformedCommandTest, ABreakWithoutAllItsInputChangesNothing) {
    expectRefused(acutBuildList(RTSTR, L"break", 0));
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, 0));
    expectRefused(
        acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTPOINT, asDblArray(at_), 0));
    expectRefused(acutBuildList(RTSTR, L"break", RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTPOINT,
                                asDblArray(at_), RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSHORT, 3, 0));
}

TEST_F(MalformedCommandTest, ATrimWithoutItsEndIsTakenBack) {
    // The pick is carried out before the list ends.
    expectRefused(acutBuildList(RTSTR, L"trim", RTENAME, Name(circle_).name, RTSTR, L"", RTLB,
                                RTENAME, Name(line_).name, RTPOINT, asDblArray(at_), RTLE, 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTENAME, Name(circle_).name, RTSTR, L"", RTLB,
                                RTENAME, Name(line_).name, RTPOINT, asDblArray(at_), RTLE, RTSHORT,
                                7, 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTENAME, Name(circle_).name, 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTREAL, 1.0, RTSTR, L"", RTSTR, L"", 0));
}

TEST_F(MalformedCommandTest, APickNeedsEntityAndPoint) {
    expectRefused(
        acutBuildList(RTSTR, L"trim", RTSTR, L"", RTENAME, Name(line_).name, RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTSTR, L"", RTLB, RTENAME, Name(line_).name, RTLE,
                                RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTSTR, L"", RTLB, RTPOINT, asDblArray(at_), RTLE,
                                RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTSTR, L"", RTLB, RTENAME, Name(line_).name,
                                RTPOINT, asDblArray(at_), RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTSTR, L"", RTLE, RTSTR, L"", 0));
}

TEST_F(MalformedCommandTest, NamesOfNothingAreRefused) {
    const ads_name nothing = {123456, 0};
    expectRefused(acutBuildList(RTSTR, L"trim", RTENAME, nothing, RTSTR, L"", RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"trim", RTPICKS, nothing, RTSTR, L"", RTSTR, L"", 0));
    // A list with such a name is not begun at all.
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR,
                                L"7,0", RTSTR, L"break", RTENAME, nothing, 0));
}

TEST_F(MalformedCommandTest, AnErasedEntityIsRefused) {
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenObject(entity, circle_, AcDb::kForWrite), Acad::eOk);
    entity->erase();
    entity->close();
    acedCommand(RTSTR, L"redraw", 0);
    before_ = dumpOf(database());
    expectRefused(
        acutBuildList(RTSTR, L"trim", RTENAME, Name(circle_).name, RTSTR, L"", RTSTR, L"", 0));
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(circle_).name, RTSTR, L"7,0", RTSTR,
                                L"5,2", 0));
}

TEST_F(MalformedCommandTest, AnOpenEntityIsRefused) {
    AcDbLine* open = nullptr;
    ASSERT_EQ(acdbOpenObject(open, line_, AcDb::kForRead), Acad::eOk);
    expectRefused(
        acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR, L"7,0", 0));
    open->close();
    // The space is open: the line is cut before the second piece finds no place.
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, database().modelSpaceId(), AcDb::kForRead), Acad::eOk);
    expectRefused(
        acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR, L"7,0", 0));
    space->close();
}

TEST_F(MalformedCommandTest, ALockOfAnotherRefusesEverything) {
    database().setWriteBlocked(true);
    expectRefused(
        acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR, L"7,0", 0));
    expectRefused(acutBuildList(RTSTR, L"Undo", RTSTR, L"1", 0));
    database().setWriteBlocked(false);
}

TEST_F(MalformedCommandTest, CommandsBeforeTheBadOneStayDone) {
    resbuf* chain = acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR,
                                  L"7,0", RTSTR, L"explode", RTSTR, L"redraw", 0);
    EXPECT_EQ(acedCmd(chain), RTERROR);
    acutRelRb(chain);
    EXPECT_EQ(entities().size(), 3U);
    EXPECT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(dumpOf(database()), before_);
}

TEST_F(MalformedCommandTest, InputBehindTheEndTakesTheCommandBack) {
    expectRefused(acutBuildList(RTSTR, L"break", RTENAME, Name(line_).name, RTSTR, L"3,0", RTSTR,
                                L"7,0", RTPOINT, asDblArray(at_), 0));
    expectRefused(acutBuildList(RTSTR, L"redraw", RTSHORT, 1, 0));
}

TEST_F(MalformedCommandTest, WhatAProgramChangedBeforeIsNotTakenBack) {
    const AcDbObjectId added = addLine();
    before_ = dumpOf(database());
    expectRefused(acutBuildList(RTPOINT, asDblArray(at_), 0));
    expectRefused(acutBuildList(RTSTR, L"break", 0));
    EXPECT_TRUE(added.isValid());
}

TEST_F(MalformedCommandTest, EnterAloneAndNoInputDoNothing) {
    EXPECT_EQ(
        acedCommand(RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", 0),
        RTNORM);
    EXPECT_EQ(acedCommand(0), RTNORM);
    EXPECT_EQ(acedCommand(RTNONE), RTNORM);
    EXPECT_EQ(acedCmd(nullptr), RTNORM);
    EXPECT_EQ(acedCommand(4999, 5, 0), RTERROR);
    EXPECT_EQ(dumpOf(database()), before_);
}

TEST_F(MalformedCommandTest, WithoutADrawingNothingIsDone) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acedCommand(RTSTR, L"redraw", 0), RTERROR);
    EXPECT_EQ(acedCommand(0), RTERROR);
}

TEST_F(MalformedCommandTest, RandomListsEitherSucceedOrChangeNothing) {
    std::mt19937 random(77);
    const AcDbObjectId ids[] = {line_, circle_};
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        const auto before = dumpOf(database());
        resbuf* chain = acutBuildList(RTSTR, random() % 2 == 0 ? L"trim" : L"break", 0);
        resbuf* tail = chain;
        const unsigned count = random() % 7;
        for (unsigned i = 0; i < count; ++i) {
            const AcGePoint3d point(static_cast<double>(random() % 11), 0, 0);
            const Name name(ids[random() % 2]);
            switch (random() % 5) {
            case 0:
                tail->rbnext = acutBuildList(RTENAME, name.name, 0);
                break;
            case 1:
                tail->rbnext = acutBuildList(RTPOINT, asDblArray(point), 0);
                break;
            case 2:
                tail->rbnext =
                    acutBuildList(RTLB, RTENAME, name.name, RTPOINT, asDblArray(point), RTLE, 0);
                break;
            case 3:
                tail->rbnext = acutBuildList(RTSHORT, 1, 0);
                break;
            default:
                tail->rbnext = acutBuildList(RTSTR, L"", 0);
            }
            while (tail->rbnext != nullptr) {
                tail = tail->rbnext;
            }
        }
        const int result = acedCmd(chain);
        acutRelRb(chain);
        if (result == RTERROR) {
            ++refused;
            ASSERT_EQ(dumpOf(database()), before) << "round " << round;
        } else if (dumpOf(database()) != before) {
            ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
            ASSERT_EQ(dumpOf(database()), before) << "round " << round;
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, 3000);
}

} // namespace
