#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// A gravity network with the way from a well or pipe to its root.
Answer runPath(const Drawing& drawing, const Options& options);

} // namespace pipenet
