#pragma once

#include "dxf/DxfRecord.h"
#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeVector3d.h"

#include <vector>

namespace host_dxf {

/// The point whose x is the first group `code`, y and z in the groups 10 and 20 above; absent
/// coordinates are 0.
AcGePoint3d pointOf(const DxfRecord& record, int code);

/// Group 210 to 230, the Z axis without them or for a vector without length.
AcGeVector3d extrusionOf(const DxfRecord& record);

/// A point of the record's own coordinate system (its extrusion) in world coordinates.
AcGePoint3d worldPoint(const AcGePoint3d& point, const AcGeVector3d& extrusion);

/// Group `code` in degrees, as radians; 0 without it.
double angleOf(const DxfRecord& record, int code);

/// All points that start with a group `code`, in their order.
std::vector<AcGePoint3d> pointsOf(const DxfRecord& record, int code);

/// The values of all groups `code`, in their order.
std::vector<double> realsOf(const DxfRecord& record, int code);

} // namespace host_dxf
