#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Lowers a gravity pipe and what follows it, and writes the changed drawing.
Answer runLower(const Drawing& drawing, const Options& options);

} // namespace pipenet
