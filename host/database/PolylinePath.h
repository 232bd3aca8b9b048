#pragma once

#include "database/CurvePath.h"

#include <vector>

namespace host_db {

/// Flag of a vertex that shapes a spline and is not drawn.
inline constexpr int kFrameVertex = 16;

/// A vertex of a polyline in world coordinates with the bulge of the segment that it begins.
struct PathVertex {
    AcGePoint3d point;
    double bulge = 0.0;
};

/// The pieces of a polyline, one for each segment; arcs lie in planes with the given normal. A
/// single vertex gives one piece without length, none an empty path.
CurvePath polylinePath(const std::vector<PathVertex>& vertices, bool closed,
                       const AcGeVector3d& normal);

} // namespace host_db
