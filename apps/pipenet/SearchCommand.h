#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Rebuilds the network around the start and draws it when a picture is asked for. Throws Failure
/// for an unknown handle and a picture that cannot be written.
Answer runSearch(const Drawing& drawing, const Options& options);

} // namespace pipenet
