#include "database/Normals.h"

#include <cmath>

namespace host_db {

AcGeVector3d unitNormal(const AcGeVector3d& direction) {
    const double length = direction.length();
    if (!(length > 0.0) || !std::isfinite(length)) {
        return {0.0, 0.0, 1.0};
    }
    return direction / length;
}

} // namespace host_db
