#pragma once

#include "platform/CPoint.h"

/// A rectangle in pixels; `right` and `bottom` are the first column and row outside it.
class CRect {
public:
    CRect() = default;
    CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    /// Inside, the left and top edges included, the right and bottom ones not.
    BOOL PtInRect(const CPoint& point) const {
        const bool inside =
            point.x >= left && point.x < right && point.y >= top && point.y < bottom;
        return inside ? TRUE : FALSE;
    }
    friend bool operator==(const CRect& a, const CRect& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};
