#pragma once

#include "dxf/RecordDescription.h"
#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeVector3d.h"

namespace host_dxf {

/// An angle in radians as the degrees that a reader turns into the same radians, the shortest such
/// number where a short one will do.
double degreesOf(double radians);

/// A world point in the coordinate system of an extrusion.
AcGePoint3d planePoint(const AcGePoint3d& world, const AcGeVector3d& extrusion);

void addPoint(Fields& fields, int code, const AcGePoint3d& point, bool optional = false);

/// Groups 210 to 230, taken for granted when they are the Z axis.
void addExtrusion(Fields& fields, const AcGeVector3d& extrusion);

/// A number that is taken for granted when it is `usual`.
Field usualReal(int code, double value, double usual);
Field usualInteger(int code, std::int64_t value, std::int64_t usual, std::int64_t mask = -1);

} // namespace host_dxf
