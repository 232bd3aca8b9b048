#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

namespace {

/// Half the side of a square to its corner, as the drawings have always reckoned it.
constexpr double kSquareToCorner = 1.414;

/// A pipe end may miss a well's rim by a hundredth of the radius.
constexpr double kRimSlack = 1.01;

double ToCorner(int isSquareWell, double radius) {
    return isSquareWell != 0 ? radius * kSquareToCorner : radius;
}

} // namespace

double RadiusToCorner(const _Block& block, double radius) {
    return ToCorner(block.isSquareWell, radius);
}

double RadiusToCorner(const WellSite& well, double radius) {
    return ToCorner(well.isSquareWell, radius);
}

double WellReach(const WellSite& well) {
    return RadiusToCorner(well, well.radius * kRimSlack);
}

bool HoldsEnd(const WellSite& well, const AcGePoint3d& freeEnd) {
    return well.position.distanceTo(freeEnd) < WellReach(well);
}

double ExtentsMargin() {
    return 1.0 / GetVZDrawScale();
}

int PointInExtents(AcGePoint3d point, AcDbExtents extents, int ignoreZ) {
    const double margin = ExtentsMargin();
    const auto inside = [margin](double value, double low, double high) {
        return value >= low - margin && value <= high + margin;
    };
    const AcGePoint3d low = extents.minPoint();
    const AcGePoint3d high = extents.maxPoint();
    if (!inside(point.x, low.x, high.x) || !inside(point.y, low.y, high.y)) {
        return 0;
    }
    return ignoreZ != 0 || inside(point.z, low.z, high.z) ? 1 : 0;
}

} // namespace tkvlt
