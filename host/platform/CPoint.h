#pragma once

#include "platform/PlatformTypes.h"

/// A place on the screen or in a window, in pixels, y downwards.
class CPoint {
public:
    CPoint() = default;
    CPoint(int initX, int initY) : x(initX), y(initY) {}

    void SetPoint(int newX, int newY) {
        x = newX;
        y = newY;
    }
    void Offset(int dx, int dy) {
        x += dx;
        y += dy;
    }
    friend bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }

    LONG x = 0;
    LONG y = 0;
};
