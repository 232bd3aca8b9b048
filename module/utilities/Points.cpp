#include "utilities/Points.h"

int PelPixelPtToUcsPt(CPoint& pixel, AcGePoint3d& point) {
    CRect window;
    acedGetAcadDwgView()->GetWindowRect(&window);
    AcGePoint3d lowerLeft;
    AcGePoint3d upperRight;
    XScjx(lowerLeft, upperRight);
    const LONG right = pixel.x - window.left;
    const LONG up = window.bottom - pixel.y;
    point.x = lowerLeft.x + right * (upperRight.x - lowerLeft.x) / (window.right - window.left);
    point.y = lowerLeft.y + up * (upperRight.y - lowerLeft.y) / (window.bottom - window.top);
    point.z = 0.0;
    return window.PtInRect(pixel) != FALSE ? 1 : 0;
}

AcGePoint3d PelTopLeftPoint(AcGePoint3d& a, AcGePoint3d& b) {
    if (a.y != b.y) {
        return a.y > b.y ? a : b;
    }
    return a.x < b.x ? a : b;
}

AcGePoint3d PelGetPolarPoint(AcGePoint3d point, AcGeVector3d vector, double distance) {
    return point + vector.normalize() * distance;
}
