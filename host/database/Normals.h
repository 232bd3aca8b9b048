#pragma once

#include "geometry/AcGeVector3d.h"

namespace host_db {

/// The direction as a normal of length one; the world's Z axis for one without length or of
/// numbers that are not finite, which damaged files hold.
AcGeVector3d unitNormal(const AcGeVector3d& direction);

} // namespace host_db
