#pragma once

#include "CheckReport.h"
#include "Drawing.h"

#include <string>

namespace pipenet {

/// The report of a check as one HTML page, UTF-8, that needs nothing else: the pipes, wells and
/// tanks of the drawing as a picture to move about in, the findings beside it, and the figures of
/// each system. Texts that are no valid UTF-8 are mended; what has no finite place is listed, but
/// not drawn. Cost: one look at each network entity of the drawing.
std::string htmlReport(const Drawing& drawing, const CheckReport& report);

} // namespace pipenet
