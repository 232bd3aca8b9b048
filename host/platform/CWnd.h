#pragma once

#include "platform/CObject.h"
#include "platform/CRect.h"

/// A window that lives in memory: it has a place and a size and is never drawn.
class CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)
public:
    /// Writes the window's rectangle in screen pixels; `rect` null is an invalid argument.
    void GetWindowRect(CRect* rect) const;
    /// Puts the window at `x`, `y` with that width and height in pixels. `repaint` has no effect.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const CRect* rect, BOOL repaint = TRUE);

private:
    CRect rect_;
};
