#include "geometry/AcGeScale3d.h"

#include <algorithm>
#include <cmath>

constinit const AcGeScale3d AcGeScale3d::kIdentity;

bool AcGeScale3d::isProportional(const AcGeTol& tol) const {
    const double size = std::fabs(sx);
    return std::max(std::fabs(size - std::fabs(sy)), std::fabs(size - std::fabs(sz))) <=
           tol.equalVector();
}

bool AcGeScale3d::isEqualTo(const AcGeScale3d& other, const AcGeTol& tol) const {
    return std::max({std::fabs(sx - other.sx), std::fabs(sy - other.sy),
                     std::fabs(sz - other.sz)}) <= tol.equalVector();
}
