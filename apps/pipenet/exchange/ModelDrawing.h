#pragma once

#include "exchange/ModelLayout.h"

#include <string>

namespace pipenet {

/// What was drawn.
struct DrawnCounts {
    int wells = 0;
    int tanks = 0;
    int pipes = 0;
};

/// Draws a model into a new drawing and writes it to `path` in one step. `system` is the pipe
/// system that all of it belongs to; `units` those that it was laid out for. Throws Failure when
/// the file cannot be written; nothing is left behind then.
DrawnCounts writeModelDrawing(const PipeModel& model, const ModelLayout& layout,
                              const CString& system, const LayoutUnits& units,
                              const std::string& path);

} // namespace pipenet
