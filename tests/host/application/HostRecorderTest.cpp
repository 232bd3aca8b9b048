#include "application/HostRecorder.h"
#include "application/AcApDocManager.h"
#include "application/HostDocuments.h"
#include "database/AcDbLine.h"
#include "database/OpenObject.h"
#include "database/SymbolTableSearch.h"
#include "editor/CommandProcessor.h"
#include "editor/EditorView.h"
#include "editor/EditorWindows.h"
#include "editor/SelectionSets.h"
#include "editor/SystemVariables.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class HostRecorderTest : public ::testing::Test {
protected:
    HostRecorderTest() : document_(host::newDocument()) {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, document_->database()->modelSpaceId(), AcDb::kForWrite),
                  Acad::eOk);
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        EXPECT_EQ(space->appendAcDbEntity(line_, line), Acad::eOk);
        line->close();
        space->close();
        ACHAR handle[17];
        line_.handle().getIntoAsciiBuffer(handle);
        handle_ = handle;
        acdbGetAdsName(name_, line_);
    }
    ~HostRecorderTest() override { host::closeDocument(document_); }

    using Lines = std::vector<std::wstring>;

    AcApDocument* document_;
    AcDbObjectId line_;
    std::wstring handle_;
    ads_name name_;
};

TEST_F(HostRecorderTest, ASilentCommandIsRecordedInItsOrder) {
    const AcGePoint3d first(3, 0, 0);
    const AcGePoint3d second(7.5, 0, 0);
    const host::HostRecorder recorder;
    ads_name set;
    acedSSAdd(name_, nullptr, set);
    resbuf saved{};
    acedGetVar(L"cmdEcho", &saved);
    resbuf off = saved;
    off.resval.rint = 0;
    acedSetVar(L"cmdEcho", &off);
    acedCommand(RTSTR, L"break", RTPICKS, set, RTPOINT, asDblArray(first), RTPOINT,
                asDblArray(second), 0);
    acedSetVar(L"cmdEcho", &saved);
    acedSSFree(set);
    EXPECT_EQ(recorder.lines(), (Lines{L"getvar CMDECHO", L"setvar CMDECHO 0",
                                       L"command \"break\" set:1 3,0,0 7.5,0,0 = RTNORM",
                                       L"setvar CMDECHO 1", L"free"}));
}

TEST_F(HostRecorderTest, FailedCommandsAreRecordedWithTheirInput) {
    const AcGePoint3d at(1, 2, 3);
    const host::HostRecorder recorder;
    acedCommand(RTSTR, L"trim", RTENAME, name_, RTSTR, L"", RTLB, RTENAME, name_, RTPOINT,
                asDblArray(at), RTLE, 0);
    acedCommand(RTSTR, L"explode", RTSHORT, 7, RTREAL, 0.25, 0);
    EXPECT_EQ(recorder.lines(), (Lines{L"command \"trim\" entity:" + handle_ + L" \"\" ( entity:" +
                                           handle_ + L" 1,2,3 ) = RTERROR",
                                       L"command \"explode\" 7 0.25 = RTERROR"}));
}

TEST_F(HostRecorderTest, OpensLocksAndErasesAreRecorded) {
    const host::HostRecorder recorder;
    acDocManager()->lockDocument(document_, AcAp::kWrite, nullptr, nullptr, true);
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, line_, AcDb::kForWrite), Acad::eOk);
    line->erase();
    line->erase(false);
    line->close();
    acDocManager()->unlockDocument(document_);
    ASSERT_EQ(acdbOpenObject(line, line_, AcDb::kForRead), Acad::eOk);
    // A refused open is not recorded.
    AcDbLine* second = nullptr;
    EXPECT_EQ(acdbOpenObject(second, line_, AcDb::kForWrite), Acad::eWasOpenForRead);
    line->close();
    EXPECT_EQ(
        recorder.lines(),
        (Lines{L"lock kWrite", L"open write " + handle_, L"erase " + handle_, L"unerase " + handle_,
               L"close " + handle_, L"unlock", L"open read " + handle_, L"close " + handle_}));
    EXPECT_EQ(recorder.linesOf(L"open").size(), 2U);
    EXPECT_EQ(recorder.linesOf(L"lock"), Lines{L"lock kWrite"});
}

TEST_F(HostRecorderTest, MessagesAndTypedLinesAreRecorded) {
    const host::HostRecorder recorder;
    CWnd* line = acedGetAcadDockCmdLine();
    line->SendMessage(WM_CHAR, 27, 1);
    line->SendMessage(WM_CHAR, L'u', 1);
    line->SendMessage(WM_CHAR, 8, 1);
    line->SendMessage(WM_CHAR, L'x', 1);
    line->SendMessage(WM_CHAR, 13, 1);
    EXPECT_EQ(recorder.lines(),
              (Lines{L"message 258 27 1", L"message 258 117 1", L"message 258 8 1",
                     L"message 258 120 1", L"message 258 13 1", L"typed x"}));
}

TEST_F(HostRecorderTest, RedrawsAndSelectionsAreRecorded) {
    host::HostRecorder recorder;
    acedRedraw(name_, 3);
    acedRedraw(nullptr, 1);
    acedRedraw(name_, 9);
    ads_name set;
    ASSERT_EQ(acedSSGet(L"_X", nullptr, nullptr, nullptr, set), RTNORM);
    acedSSFree(set);
    EXPECT_EQ(recorder.lines(),
              (Lines{L"redraw " + handle_ + L" 3", L"redraw all 1", L"select X 1", L"free"}));
    recorder.clear();
    EXPECT_TRUE(recorder.lines().empty());
}

TEST_F(HostRecorderTest, LookUpsAndApplicationsAreRecorded) {
    const host::HostRecorder recorder;
    EXPECT_EQ(acdbTblSearch(L"APPID", L"管径"), nullptr);
    EXPECT_EQ(acdbRegApp(L"管径"), RTNORM);
    acutRelRb(acdbTblSearch(L"appid", L"管径"));
    EXPECT_EQ(acdbRegApp(L"管径"), RTNORM);
    EXPECT_EQ(acdbRegApp(L""), RTERROR);
    EXPECT_EQ(recorder.lines(), (Lines{L"tblsearch APPID 管径 = none", L"regapp 管径",
                                       L"tblsearch appid 管径 = found", L"regapp 管径"}));
}

TEST_F(HostRecorderTest, WindowsThatMoveAreRecorded) {
    CWnd window;
    const CRect place(1, 2, 31, 42);
    const host::HostRecorder recorder;
    window.MoveWindow(&place, FALSE);
    window.MoveWindow(-5, 6, 70, 80);
    EXPECT_EQ(recorder.lines(), (Lines{L"move 1 2 30 40", L"move -5 6 70 80 repaint"}));
    CRect rect;
    window.GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(-5, 6, 65, 86));
}

TEST_F(HostRecorderTest, NewApplicationsWaitForTheLockOfAnother) {
    ASSERT_EQ(acdbRegApp(L"KNOWN"), RTNORM);
    ASSERT_EQ(acDocManager()->lockByAnother(document_, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(acdbRegApp(L"NEW"), RTERROR);
    EXPECT_EQ(acdbRegApp(L"KNOWN"), RTNORM);
    ASSERT_EQ(acDocManager()->lockByAnother(document_, AcAp::kNotLocked), Acad::eOk);
    EXPECT_EQ(acdbTblSearch(L"APPID", L"NEW"), nullptr);
    EXPECT_EQ(acdbRegApp(L"NEW"), RTNORM);
}

TEST_F(HostRecorderTest, TwoListenersHearTheSameUntilOneLeaves) {
    const host::HostRecorder first;
    {
        const host::HostRecorder second;
        acedRedraw(nullptr, 1);
        EXPECT_EQ(second.lines().size(), 1U);
    }
    acedRedraw(nullptr, 2);
    EXPECT_EQ(first.lines(), (Lines{L"redraw all 1", L"redraw all 2"}));
}

/// Sends another listener away at the first event.
class Bouncer : public host::EventListener {
public:
    explicit Bouncer(std::unique_ptr<host::HostRecorder>& other) : other_(other) {
        host::addListener(*this);
    }
    ~Bouncer() override { host::removeListener(*this); }
    void onEvent(const std::wstring& /*line*/) override { other_.reset(); }

private:
    std::unique_ptr<host::HostRecorder>& other_;
};

TEST_F(HostRecorderTest, AListenerThatAnotherSentAwayIsNotTold) {
    std::unique_ptr<host::HostRecorder> other;
    const Bouncer bouncer(other);
    other = std::make_unique<host::HostRecorder>();
    const host::HostRecorder last;
    acedRedraw(nullptr, 1);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(last.lines(), Lines{L"redraw all 1"});
}

} // namespace
