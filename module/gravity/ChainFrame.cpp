#include "gravity/ChainFrame.h"

namespace tkvlt {

NearEnd NearestEnd(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& point) {
    constexpr double farAway = 1e20;
    NearEnd near{farAway, true};
    const double fromStart = start.distanceTo(point);
    const double fromEnd = end.distanceTo(point);
    if (fromStart < near.distance) {
        near = {fromStart, true};
    }
    if (fromEnd < near.distance) {
        near = {fromEnd, false};
    }
    return near;
}

} // namespace tkvlt
