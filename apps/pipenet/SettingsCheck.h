#pragma once

#include <string>

namespace pipenet {

/// Path of the settings file that lists the pipe systems, as the settings stand now.
std::string pipeSystemsFile();

/// Throws Failure, naming file, line and cause, unless the file of the pipe systems can be read and
/// the file of the drawing settings is either absent or can be read.
void checkSettings();

} // namespace pipenet
