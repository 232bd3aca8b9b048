#pragma once

#include "platform/CObject.h"
#include "platform/CRect.h"
#include "platform/CString.h"

/// A window's handle, which names it to the functions below; nullptr names none.
struct HWND__;
using HWND = HWND__*;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

/// Messages that the host's windows know.
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_CHAR = 0x0102;

/// A window that lives in memory: it has a place and a size, takes messages and is never drawn.
class CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)
public:
    CWnd();
    /// Messages posted to the window and not handled yet go with it.
    ~CWnd() override;

    /// Writes the window's rectangle in screen pixels; `rect` null is an invalid argument.
    void GetWindowRect(CRect* rect) const;
    /// Puts the window at `x`, `y` with that width and height in pixels. Without a
    /// picture to draw anew `repaint` only shows in what listeners are told.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const CRect* rect, BOOL repaint = TRUE);

    /// The window's handle, which names it as long as it lives.
    HWND GetSafeHwnd() const { return m_hWnd; }
    /// The text that stands in the window.
    void GetWindowText(CString& text) const { text = text_; }
    void SetWindowText(const ACHAR* text) { text_ = text; }

    /// Has the message handled before it returns; the result is the window's.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Puts the message at the end of the process's queue, from where host::handlePostedMessages
    /// hands it to the window.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    HWND m_hWnd;

protected:
    /// Handles one message. A window as such knows WM_SETTEXT alone; the rest gives 0.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

private:
    CRect rect_;
    CString text_;
};

/// The same by handle. A handle of no living window: 0, and nothing happens.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace host {

/// Hands the posted messages to their windows in the order of posting, those posted meanwhile
/// included. Returns how many were handled.
int handlePostedMessages();

} // namespace host
