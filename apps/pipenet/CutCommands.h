#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Breaks lines where they cross or run into each other, and writes the changed drawing.
Answer runBreak(const Drawing& drawing, const Options& options);

/// Cuts lines off at the rim of a block reference, and writes the changed drawing.
Answer runTrim(const Drawing& drawing, const Options& options);

} // namespace pipenet
