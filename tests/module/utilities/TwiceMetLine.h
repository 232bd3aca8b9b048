#pragma once

#include "EmbeddedHost.h"

namespace module_tests {

/// A line that another one meets in two points, which straight lines never do.
class TwiceMetLine : public AcDbLine {
public:
    using AcDbLine::AcDbLine;
    Acad::ErrorStatus intersectWith(const AcDbEntity* /*other*/, AcDb::Intersect /*which*/,
                                    AcGePoint3dArray& points, Adesk::IntPtr /*thisMarker*/,
                                    Adesk::IntPtr /*otherMarker*/) const override {
        points.append(AcGePoint3d(1, 0, 0));
        points.append(AcGePoint3d(2, 0, 0));
        return Acad::eOk;
    }
};

} // namespace module_tests
