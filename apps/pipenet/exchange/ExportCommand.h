#pragma once

#include "Answer.h"
#include "Drawing.h"
#include "Options.h"

namespace pipenet {

/// Searches as the command line asks and writes the network in the form it asks. A refused search
/// and a form that cannot take the network's kind are refusals, and nothing is written then. Throws
/// Failure for an output that cannot be written. Notes go to standard error.
Answer runExport(const Drawing& drawing, const Options& options);

} // namespace pipenet
