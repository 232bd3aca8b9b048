#pragma once

#include "database/AcDbObjectId.h"
#include "geometry/AcGeVector2d.h"
#include "platform/CString.h"

#include <cstdint>

namespace host_db {

/// A dash of a linetype, with the text or shape drawn at its end, if any.
struct LinetypeDash {
    /// Bits of `flags`, as drawing files have them.
    static constexpr std::int64_t kAbsoluteRotation = 1;
    static constexpr std::int64_t kText = 2;
    static constexpr std::int64_t kShape = 4;
    static constexpr std::int64_t kUpright = 8;

    double length = 0.0; ///< drawing units: a dash above 0, a dot at 0, a gap below
    std::int64_t flags = 0;
    /// What follows counts for a text or a shape alone.
    std::int64_t shapeNumber = 0;
    AcDbObjectId style;
    double scale = 1.0;
    double rotation = 0.0; ///< radians, of the line's direction unless kAbsoluteRotation is set
    AcGeVector2d offset;   ///< from the end of the dash, drawing units, along and across the line
    CString text;

    bool isComplex() const { return (flags & (kText | kShape)) != 0; }
};

} // namespace host_db
