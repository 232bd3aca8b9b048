#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// The systems of the drawing in order of first occurrence.
Answer runInfo(const Drawing& drawing, const Options& options);

} // namespace pipenet
