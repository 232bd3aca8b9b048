#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// The stretches around the pipes asked for, in their order. A pipe of a system that the settings
/// do not know is refused by name, beside the others' answer.
Answer runSegments(const Drawing& drawing, const Options& options);

} // namespace pipenet
