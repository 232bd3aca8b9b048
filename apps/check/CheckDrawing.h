#pragma once

#include "CheckApi.h"
#include "CheckReport.h"

#include <string>

namespace pipenet {

/// Rebuilds every network of the current document as the search module does and lists what an
/// engineer should look at. The drawing is read and not changed. The cost grows about as the number
/// of network entities.
///
/// @param onlySystem the name of the one system to check, UTF-8; empty for all of the drawing. A
///                   name that no entity carries gives an empty report.
PIPENET_CHECK_API CheckReport checkDrawing(const std::string& onlySystem);

} // namespace pipenet
