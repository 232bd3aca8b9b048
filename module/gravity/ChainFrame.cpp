#include "gravity/ChainFrame.h"

namespace tkvlt {

NearEnd NearestEnd(const PipeSite& pipe, const AcGePoint3d& point) {
    constexpr double farAway = 1e20;
    NearEnd near{farAway, true};
    const double fromStart = pipe.startPoint.distanceTo(point);
    const double fromEnd = pipe.endPoint.distanceTo(point);
    if (fromStart < near.distance) {
        near = {fromStart, true};
    }
    if (fromEnd < near.distance) {
        near = {fromEnd, false};
    }
    return near;
}

} // namespace tkvlt
