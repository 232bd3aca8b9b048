#pragma once

#include "records/Pipe.h"

#include <optional>

namespace pipenet {

/// What the heights of two pipes at one place say of each other, metres.
struct HeightGap {
    double apart;     ///< between the two heights
    double diameters; ///< both together
};

/// The heights at a place on both pipes, shared out along each by its length; nothing when a text
/// of an elevation is missing.
std::optional<HeightGap> heightGap(const AcDbObjectId& a, const AcDbObjectId& b,
                                   const AcGePoint3d& place);

} // namespace pipenet
