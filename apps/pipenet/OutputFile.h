#pragma once

#include "Drawing.h"
#include "Options.h"

#include <string>

namespace pipenet {

/// Where a command writes its drawing or report to. Throws Failure, before anything is changed, for
/// an output that is the drawing itself, by whatever name, and for one that is there and is no
/// plain file.
std::string outputPath(const Drawing& drawing, const Options& options);

/// Replaces the file in one step. Throws Failure when it cannot be written.
void writeOutput(const std::string& path, const std::string& text);

/// Where a command that makes a new file writes to, held against its input in the same way.
std::string separateOutput(const Options& options);

/// Holds the path of the picture, if one is asked for, against the drawing and against where the
/// command writes to. Throws Failure when it would overwrite either, or is no plain file.
void checkPicture(const Options& options);

} // namespace pipenet
