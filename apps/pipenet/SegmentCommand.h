#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Builds the stretch around one pipe. Throws Failure for an unknown handle.
Answer runSegment(const Drawing& drawing, const Options& options);

} // namespace pipenet
