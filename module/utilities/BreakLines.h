#pragma once

#include "platform.h"
#include "records/CandidateMode.h"

namespace tkvlt {

/// `PelBreakLine` with the pairs of lines found in the way that is asked for.
void BreakLines(AcDbObjectIdArray& lines, CandidateMode mode);

} // namespace tkvlt
