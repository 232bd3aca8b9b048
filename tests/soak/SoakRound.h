#pragma once

#include "SoakDrawing.h"

#include <string>

namespace soak {

/// What a round may say: throws a std::runtime_error with `what` unless it holds.
void require(bool holds, const std::string& what);

/// Opens the drawing, searches it, changes and saves it, opens what was saved and searches again,
/// and closes everything.
///
/// @param saved file to save to; it is replaced.
/// @throws std::runtime_error when anything comes out other than it must, or when something of the
///         host is still taken at the end.
void runRound(const SoakDrawing& drawing, const std::string& saved);

} // namespace soak
