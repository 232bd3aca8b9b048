#include "editor/EditorWindows.h"

#include "editor/CommandRun.h"
#include "platform/HostEvents.h"

namespace {

/// The command line: an edit field whose Enter hands the text on.
class CommandLineWindow : public CWnd {
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_CHAR) {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        CString text;
        GetWindowText(text);
        SetWindowText(take(static_cast<wchar_t>(wParam), text));
        return 0;
    }

private:
    /// What stands on the line after the character.
    static CString take(wchar_t character, const CString& text) {
        constexpr wchar_t kBackspace = 8;
        constexpr wchar_t kEnter = 13;
        constexpr wchar_t kEscape = 27;
        switch (character) {
        case kBackspace:
            return text.IsEmpty() ? text : text.Left(text.GetLength() - 1);
        case kEnter:
            host_ed::runTyped(text.GetString());
            return {};
        case kEscape:
            host_ed::cancelTyped();
            return {};
        default:
            return text + character;
        }
    }
};

/// A window of the program, which lives as long as the process.
template<typename Window>
Window* makeWindow(const CRect& place) {
    const host::EventSilence silence;
    auto* window = new Window;
    window->MoveWindow(&place);
    return window;
}

} // namespace

CWnd* acedGetAcadDockCmdLine() {
    static auto* const window = makeWindow<CommandLineWindow>(CRect(0, 850, 1000, 900));
    return window;
}

CWnd* acedGetAcadDwgView() {
    static auto* const window = makeWindow<CWnd>(CRect(0, 50, 1000, 850));
    return window;
}

CWnd* acedGetAcadFrame() {
    static auto* const window = makeWindow<CWnd>(CRect(0, 0, 1000, 900));
    return window;
}
