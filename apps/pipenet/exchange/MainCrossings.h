#pragma once

#include "exchange/ModelLayout.h"

#include <utility>
#include <vector>

namespace pipenet {

/// Pairs of mains, by index, that cross or touch on the drawing's plane though the model does not
/// join them there: the search takes each such place for a joint. Chords count, as they do for the
/// search. Looks at pairs whose boxes overlap, found by sweeping from left to right.
std::vector<std::pair<std::size_t, std::size_t>> mainCrossings(const PipeModel& model,
                                                               const ModelLayout& layout);

} // namespace pipenet
