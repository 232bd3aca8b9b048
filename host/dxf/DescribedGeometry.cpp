#include "dxf/DescribedGeometry.h"

#include "geometry/AcGeMatrix3d.h"

#include <cmath>
#include <numbers>

namespace host_dxf {

double degreesOf(double radians) {
    // As readers turn them: degrees times pi/180.
    constexpr double radiansPerDegree = std::numbers::pi / 180.0;
    constexpr double decimals = 1e9;
    const double degrees = radians * 180.0 / std::numbers::pi;
    const double rounded = std::round(degrees * decimals) / decimals;
    for (const double candidate : {rounded, degrees, std::nextafter(degrees, -HUGE_VAL),
                                   std::nextafter(degrees, HUGE_VAL)}) {
        if (candidate * radiansPerDegree == radians) {
            return candidate;
        }
    }
    return degrees;
}

AcGePoint3d planePoint(const AcGePoint3d& world, const AcGeVector3d& extrusion) {
    if (extrusion.x == 0.0 && extrusion.y == 0.0 && extrusion.z > 0.0) {
        return world;
    }
    return AcGeMatrix3d::worldToPlane(extrusion) * world;
}

void addPoint(Fields& fields, int code, const AcGePoint3d& point, bool optional) {
    addPoint(fields, code, point.x, point.y, point.z, optional);
}

void addExtrusion(Fields& fields, const AcGeVector3d& extrusion) {
    constexpr int extrusionCode = 210;
    const bool upright = extrusion.x == 0.0 && extrusion.y == 0.0 && extrusion.z == 1.0;
    addPoint(fields, extrusionCode, extrusion.x, extrusion.y, extrusion.z, upright);
}

Field usualReal(int code, double value, double usual) {
    return {code, value, value == usual};
}

Field usualInteger(int code, std::int64_t value, std::int64_t usual, std::int64_t mask) {
    return {code, value, value == usual, mask};
}

} // namespace host_dxf
