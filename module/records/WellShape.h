#pragma once

#include "platform.h"
#include "records/PerDefinition.h"

namespace tkvlt {

/// The radius of a well, in drawing units, from the text of its diameter in metres.
double WellRadius(const CString& diameter);

/// 1 for the block definition of the square wells, else 0.
int IsSquareWellDefinition(const AcDbObjectId& definition);

/// Remembers which block definitions are square wells, and the radius of the diameter that was
/// asked for last: a drawing has few of either.
class WellShapes {
public:
    /// The same as `IsSquareWellDefinition`, which is asked once for each definition.
    int IsSquare(const AcDbObjectId& definition);
    /// The same as `WellRadius`, as long as the scale of drawings stays.
    double Radius(const CString& diameter);

private:
    PerDefinition<int> isSquare_;
    CString lastDiameter_;
    double lastRadius_ = 0.0;
    bool hasRadius_ = false;
};

} // namespace tkvlt
