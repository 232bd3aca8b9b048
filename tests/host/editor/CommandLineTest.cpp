#include "editor/EditorWindows.h"

#include "host/editor/CommandFixture.h"

#include "editor/SystemVariables.h"

namespace {

class CommandLineTest : public CommandFixture {
protected:
    ~CommandLineTest() override { typeCharacter(27); }

    static void typeCharacter(wchar_t character) {
        SendMessageW(acedGetAcadDockCmdLine()->GetSafeHwnd(), WM_CHAR,
                     static_cast<WPARAM>(character), 1);
    }

    static void type(const wchar_t* text) {
        for (; *text != L'\0'; ++text) {
            typeCharacter(*text);
        }
    }

    static void typeLine(const wchar_t* text) {
        type(text);
        typeCharacter(13);
    }

    static std::wstring standing() {
        CString text;
        acedGetAcadDockCmdLine()->GetWindowText(text);
        return text.GetString();
    }

    static bool isWaiting() {
        resbuf value{};
        EXPECT_EQ(acedGetVar(L"cmdactive", &value), RTNORM);
        return value.resval.rint != 0;
    }
};

TEST_F(CommandLineTest, CharactersStandUntilEnter) {
    type(L"undo");
    EXPECT_EQ(standing(), L"undo");
    typeCharacter(8);
    EXPECT_EQ(standing(), L"und");
    for (int i = 0; i < 100; ++i) {
        typeCharacter(8);
    }
    EXPECT_EQ(standing(), L"");
    typeLine(L"redraw");
    EXPECT_EQ(standing(), L"");
}

TEST_F(CommandLineTest, EscapeClearsTheLineAndCancels) {
    typeLine(L"trim");
    EXPECT_TRUE(isWaiting());
    type(L"abc");
    typeCharacter(27);
    EXPECT_EQ(standing(), L"");
    EXPECT_FALSE(isWaiting());
}

TEST_F(CommandLineTest, ABlankIsEnter) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    ASSERT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    typeLine(L"_.undo 1");
    EXPECT_EQ(dumpOf(database()), before);
    EXPECT_FALSE(isWaiting());
}

TEST_F(CommandLineTest, ACommandGoesOnWithTheNextLine) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    typeLine(L"break");
    EXPECT_TRUE(isWaiting());
    // The line passes 1 from the point, within the pick box, which is 3.75.
    typeLine(L"5,1");
    typeLine(L"First");
    typeLine(L"3,0");
    EXPECT_EQ(entities().size(), 1U);
    typeLine(L"@4,0");
    EXPECT_FALSE(isWaiting());
    ASSERT_EQ(entities().size(), 2U);
    expectLine(line, {0, 0, 0}, {3, 0, 0});
    expectLine(entities()[1], {7, 0, 0}, {10, 0, 0});
}

TEST_F(CommandLineTest, TrimIsTypedWhole) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    addLine({4, -50, 0}, {4, 50, 0});
    // Edge by pick, Enter, pick, Enter: the last Enter is the line's end.
    typeLine(L"trim 4,30  9,0 ");
    EXPECT_FALSE(isWaiting());
    expectLine(line, {0, 0, 0}, {4, 0, 0});
}

TEST_F(CommandLineTest, AWrongInputTakesTheCommandBack) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    addLine({4, -50, 0}, {4, 50, 0});
    acedCommand(RTSTR, L"redraw", 0);
    const auto before = dumpOf(database());
    typeLine(L"trim all  9,0");
    EXPECT_TRUE(isWaiting());
    expectLine(line, {0, 0, 0}, {4, 0, 0});
    typeLine(L"nonsense");
    EXPECT_FALSE(isWaiting());
    EXPECT_EQ(dumpOf(database()), before);
    typeLine(L"trim all  9,0");
    typeCharacter(27);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(CommandLineTest, SixEntersEndWhatWasBegun) {
    typeLine(L"trim");
    EXPECT_EQ(
        acedCommand(RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", 0),
        RTNORM);
    EXPECT_FALSE(isWaiting());
}

TEST_F(CommandLineTest, NoInputCancelsWhatWasBegun) {
    typeLine(L"break");
    EXPECT_EQ(acedCommand(0), RTNORM);
    EXPECT_FALSE(isWaiting());
}

TEST_F(CommandLineTest, UnknownTextDoesNothing) {
    const auto before = dumpOf(database());
    typeLine(L"管道 explode 7");
    typeLine(L"");
    EXPECT_FALSE(isWaiting());
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(CommandLineTest, PostedMessagesWaitForTheirTurn) {
    CWnd* line = acedGetAcadDockCmdLine();
    EXPECT_TRUE(line->PostMessage(WM_CHAR, L'a', 1));
    EXPECT_TRUE(line->PostMessage(WM_CHAR, L'b', 1));
    EXPECT_EQ(standing(), L"");
    type(L"x");
    EXPECT_EQ(host::handlePostedMessages(), 2);
    EXPECT_EQ(standing(), L"xab");
    EXPECT_EQ(host::handlePostedMessages(), 0);
}

TEST_F(CommandLineTest, HandlesOfNoWindowDoNothing) {
    EXPECT_EQ(SendMessageW(nullptr, WM_CHAR, L'a', 1), 0);
    HWND gone = nullptr;
    {
        CWnd window;
        gone = window.GetSafeHwnd();
        EXPECT_TRUE(window.PostMessage(WM_CHAR, L'a', 1));
        EXPECT_EQ(SendMessageW(gone, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"text")), TRUE);
        CString text;
        window.GetWindowText(text);
        EXPECT_STREQ(text, L"text");
    }
    EXPECT_EQ(host::handlePostedMessages(), 0);
    EXPECT_FALSE(PostMessageW(gone, WM_CHAR, L'a', 1));
}

TEST_F(CommandLineTest, TheWindowsHaveTheirPlaces) {
    CRect view;
    acedGetAcadDwgView()->GetWindowRect(&view);
    EXPECT_EQ(view.Width(), 1000);
    EXPECT_EQ(view.Height(), 800);
    EXPECT_TRUE(view.PtInRect({0, 50}));
    EXPECT_FALSE(view.PtInRect({1000, 50}));
    EXPECT_FALSE(view.PtInRect({0, 850}));
    EXPECT_NE(acedGetAcadFrame(), nullptr);
}

} // namespace
