#include "View.h"

#include "editor/EditorWindows.h"
#include "editor/SystemVariables.h"

int XScjx(AcGePoint3d& lowerLeft, AcGePoint3d& upperRight) {
    resbuf center{};
    resbuf height{};
    CRect window;
    acedGetAcadDwgView()->GetWindowRect(&window);
    if (window.Height() <= 0 || acedGetVar(L"VIEWCTR", &center) != RTNORM ||
        acedGetVar(L"VIEWSIZE", &height) != RTNORM) {
        return 0;
    }
    const double shape = static_cast<double>(window.Width()) / window.Height();
    const double up = height.resval.rreal / 2.0;
    const double across = up * shape;
    const ads_real* const middle = center.resval.rpoint;
    lowerLeft.set(middle[0] - across, middle[1] - up, 0.0);
    upperRight.set(middle[0] + across, middle[1] + up, 0.0);
    return 1;
}
