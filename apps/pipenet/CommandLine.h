#pragma once

#include "Options.h"

#include <optional>

namespace pipenet {

/// Reads the command line. Nothing when help or the version was asked for and has been printed to
/// standard output. Throws Failure for a usage error.
std::optional<Options> parseCommandLine(int count, const char* const* arguments);

} // namespace pipenet
