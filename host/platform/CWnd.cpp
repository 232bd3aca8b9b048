#include "platform/CWnd.h"

#include "platform/PlatformException.h"

IMPLEMENT_DYNAMIC(CWnd, CObject)

void CWnd::GetWindowRect(CRect* rect) const {
    if (rect == nullptr) {
        AfxThrowInvalidArgException();
    }
    *rect = rect_;
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL /*repaint*/) {
    rect_.SetRect(x, y, x + width, y + height);
}

void CWnd::MoveWindow(const CRect* rect, BOOL /*repaint*/) {
    if (rect == nullptr) {
        AfxThrowInvalidArgException();
    }
    rect_ = *rect;
}
