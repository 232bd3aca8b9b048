#pragma once

#include <unordered_map>

#include "platform.h"

namespace tkvlt {

/// The radius of a well, in drawing units, from the text of its diameter in metres.
double WellRadius(const CString& diameter);

/// 1 for the block definition of the square wells, else 0.
int IsSquareWellDefinition(const AcDbObjectId& definition);

/// Remembers which block definitions are square wells; a drawing has few of them.
class SquareWells {
public:
    /// The same as `IsSquareWellDefinition`, which is asked once for each definition.
    int Has(const AcDbObjectId& definition);

private:
    std::unordered_map<AcDbObjectId, int> known_;
};

} // namespace tkvlt
