#include "utilities/DialogPosition.h"

namespace {

constexpr int kFirstPlace = 150;
/// A left edge that stands for "leave the dialog where it opens".
constexpr int kStayInPlace = -10000;

const wchar_t* const kLeftKey = L"\\对话框位置\\left";
const wchar_t* const kTopKey = L"\\对话框位置\\top";

CRect RectOf(const CWnd* window) {
    CRect rect;
    window->GetWindowRect(&rect);
    return rect;
}

bool IsOnScreen(const CRect& rect) {
    return rect.right > 0;
}

} // namespace

void PelGetRect(CString dialogName, CWnd* window) {
    const CRect rect = RectOf(window);
    if (!IsOnScreen(rect)) {
        return;
    }
    int left = kFirstPlace;
    int top = kFirstPlace;
    OpenUserFile();
    GetDefaultValue(dialogName + kLeftKey, left);
    GetDefaultValue(dialogName + kTopKey, top);
    CloseUserFile();
    if (left != kStayInPlace) {
        window->MoveWindow(left, top, rect.Width(), rect.Height(), TRUE);
    }
}

void PelSaveRect(CString dialogName, CWnd* window) {
    const CRect rect = RectOf(window);
    if (!IsOnScreen(rect)) {
        return;
    }
    OpenUserFile();
    SetDefaultValue(dialogName + kLeftKey, rect.left);
    SetDefaultValue(dialogName + kTopKey, rect.top);
    CloseUserFile();
}
