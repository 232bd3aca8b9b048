#include "UtilitiesTest.h"

#include "utilities/Commands.h"
#include "utilities/SendAcadCommand.h"

#include <functional>

namespace module_tests {
namespace {

class CommandsTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        setVariable(L"cmdEcho", 1);
    }

    /// A command with the echo held at 0, as the events tell it.
    static Lines quietly(const std::string& command) {
        return {"getvar CMDECHO", "setvar CMDECHO 0", "command " + command + " = RTNORM",
                "setvar CMDECHO 1"};
    }

    /// The messages of a hundred Backspaces.
    static Lines wipe() { return Lines(100, "message 258 8 1"); }
};

TEST_F(CommandsTest, LastCommandIsEndedBySixEnters) {
    PelClearLastCommand();
    EXPECT_EQ(events(), quietly(R"("" "" "" "" "" "")"));
}

TEST_F(CommandsTest, GroupIsOpenedByUndoGroupAndEndedByUndoEnd) {
    PelStartCommandGroup();
    EXPECT_EQ(events(), quietly(R"("Undo" "Group")"));
    forget();
    PelEndCommandGroup();
    EXPECT_EQ(events(), quietly(R"("Undo" "End")"));
}

TEST_F(CommandsTest, ChangesWithinAGroupAreUndoneInOneStep) {
    const AcDbObjectId kept = addLine({0, 0, 0}, {1, 0, 0});
    PelStartCommandGroup();
    const AcDbObjectId first = addLine({2, 0, 0}, {3, 0, 0});
    PelRedraw();
    const AcDbObjectId second = addLine({4, 0, 0}, {5, 0, 0});
    PelEndCommandGroup();
    ASSERT_EQ(entities(), (Ids{kept, first, second}));
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(entities(), Ids{kept});
}

TEST_F(CommandsTest, RedrawIsSent) {
    PelRedraw();
    EXPECT_EQ(events(), quietly(R"("redraw")"));
}

TEST_F(CommandsTest, EchoComesBackWhateverItWas) {
    const std::vector<std::function<void()>> commands = {
        PelClearLastCommand,
        PelStartCommandGroup,
        PelEndCommandGroup,
        PelRedraw,
        [] { PelIdRedraw(AcDbObjectId(), 1); },
        [] { PelIdArrRedraw(AcDbObjectIdArray(), 1); }};
    for (const int echo : {0, 1}) {
        for (const auto& command : commands) {
            setVariable(L"cmdEcho", echo);
            command();
            EXPECT_EQ(variable(L"cmdEcho"), echo);
        }
    }
}

TEST_F(CommandsTest, EntityIsRedrawnInItsModeAndThenTheView) {
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    forget();
    PelIdRedraw(line, 3);
    Lines expected{"redraw " + handleOf(line) + " 3"};
    const Lines view = quietly(R"("redraw")");
    expected.insert(expected.end(), view.begin(), view.end());
    EXPECT_EQ(events(), expected);
}

TEST_F(CommandsTest, NullIdStillRedrawsTheView) {
    PelIdRedraw(AcDbObjectId(), 3);
    EXPECT_EQ(events(), quietly(R"("redraw")"));
}

TEST_F(CommandsTest, ListIsRedrawnEntityByEntityAndTheViewOnce) {
    const AcDbObjectId a = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId b = addLine({2, 0, 0}, {3, 0, 0});
    AcDbObjectIdArray ids;
    ids.append(b);
    ids.append(AcDbObjectId());
    ids.append(a);
    forget();
    PelIdArrRedraw(ids, 4);
    Lines expected{"redraw " + handleOf(b) + " 4", "redraw " + handleOf(a) + " 4"};
    const Lines view = quietly(R"("redraw")");
    expected.insert(expected.end(), view.begin(), view.end());
    EXPECT_EQ(events(), expected);
}

TEST_F(CommandsTest, NullTextTypesEscapeAlone) {
    PelSendAcadCommand(nullptr);
    EXPECT_EQ(events("message"), Lines{"message 258 27 1"});
}

TEST_F(CommandsTest, EmptyTextTypesAHundredBackspacesAndEnter) {
    wchar_t text[] = L"";
    PelSendAcadCommand(text);
    Lines expected = wipe();
    expected.emplace_back("message 258 13 1");
    EXPECT_EQ(events("message"), expected);
}

TEST_F(CommandsTest, TextIsTypedCharacterByCharacter) {
    wchar_t text[] = L"Re管";
    PelSendAcadCommand(text);
    Lines expected = wipe();
    // R, e, U+7BA1 and Enter.
    for (const char* code : {"82", "101", "31649", "13"}) {
        expected.push_back(std::string("message 258 ") + code + " 1");
    }
    EXPECT_EQ(events("message"), expected);
}

TEST_F(CommandsTest, TypedCommandRunsAndWhatStoodOnTheLineIsWiped) {
    acedGetAcadDockCmdLine()->SetWindowText(L"half a word");
    const AcDbObjectId kept = addLine({0, 0, 0}, {1, 0, 0});
    PelStartCommandGroup();
    addLine({2, 0, 0}, {3, 0, 0});
    PelEndCommandGroup();
    wchar_t text[] = L"undo 1";
    PelSendAcadCommand(text);
    EXPECT_EQ(entities(), Ids{kept});
    CString left;
    acedGetAcadDockCmdLine()->GetWindowText(left);
    EXPECT_EQ(utf8(left), "");
}

} // namespace
} // namespace module_tests
