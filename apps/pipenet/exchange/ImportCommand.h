#pragma once

#include "Answer.h"
#include "Options.h"

namespace pipenet {

/// Draws the hydraulic model of the command line. Throws Failure for a damaged model and for an
/// output that cannot be written; the output is then as it was. Notes go to standard error.
Answer runImport(const Options& options);

} // namespace pipenet
