#include "platform/CWnd.h"

#include "platform/HostEvents.h"
#include "platform/PlatformException.h"

#include <deque>
#include <map>

IMPLEMENT_DYNAMIC(CWnd, CObject)

namespace {

struct PostedMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

/// The living windows and the queue between them; handles are bare values that any caller hands in.
struct Windows {
    std::map<HWND, CWnd*> byHandle;
    std::deque<PostedMessage> posted;
    std::uintptr_t lastHandle = 0;
};

Windows& windows() {
    // Never destroyed: the host's own windows may go after everything else.
    static auto* const all = new Windows;
    return *all;
}

CWnd* windowOf(HWND handle) {
    const auto it = windows().byHandle.find(handle);
    return it == windows().byHandle.end() ? nullptr : it->second;
}

} // namespace

CWnd::CWnd() : m_hWnd(reinterpret_cast<HWND>(++windows().lastHandle)) {
    windows().byHandle.emplace(m_hWnd, this);
}

CWnd::~CWnd() {
    windows().byHandle.erase(m_hWnd);
    std::erase_if(windows().posted,
                  [&](const PostedMessage& each) { return each.window == m_hWnd; });
}

void CWnd::GetWindowRect(CRect* rect) const {
    if (rect == nullptr) {
        AfxThrowInvalidArgException();
    }
    *rect = rect_;
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    rect_.SetRect(x, y, x + width, y + height);
    if (host::isListening()) {
        host::announce(L"move " + std::to_wstring(x) + L" " + std::to_wstring(y) + L" " +
                       std::to_wstring(width) + L" " + std::to_wstring(height) +
                       (repaint != FALSE ? L" repaint" : L""));
    }
}

void CWnd::MoveWindow(const CRect* rect, BOOL repaint) {
    if (rect == nullptr) {
        AfxThrowInvalidArgException();
    }
    MoveWindow(rect->left, rect->top, rect->Width(), rect->Height(), repaint);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (host::isListening()) {
        host::announce(L"message " + std::to_wstring(message) + L" " + std::to_wstring(wParam) +
                       L" " + std::to_wstring(lParam));
    }
    return WindowProc(message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    windows().posted.push_back({m_hWnd, message, wParam, lParam});
    return TRUE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message == WM_SETTEXT) {
        text_ = reinterpret_cast<const ACHAR*>(lParam);
        return TRUE;
    }
    return 0;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* found = windowOf(window);
    return found == nullptr ? 0 : found->SendMessage(message, wParam, lParam);
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* found = windowOf(window);
    return found == nullptr ? FALSE : found->PostMessage(message, wParam, lParam);
}

namespace host {

int handlePostedMessages() {
    int handled = 0;
    while (!windows().posted.empty()) {
        const PostedMessage next = windows().posted.front();
        windows().posted.pop_front();
        SendMessageW(next.window, next.message, next.wParam, next.lParam);
        ++handled;
    }
    return handled;
}

} // namespace host
