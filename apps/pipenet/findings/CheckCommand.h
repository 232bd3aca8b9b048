#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Rebuilds every network of the drawing, or of one system of it, and lists what an engineer should
/// look at, in the form that was asked for. Refused when there is an error among the findings, and
/// when the drawing does not have the system; then there is no answer at all.
Answer runCheck(const Drawing& drawing, const Options& options);

} // namespace pipenet
