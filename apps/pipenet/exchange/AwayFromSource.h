#pragma once

#include "exchange/PipeModel.h"

#include <vector>

namespace pipenet {

/// For each link of a main whether it is to be drawn from its second node to its first, so that all
/// lead away from where the water comes in: the first reservoir, else the first tank, else the
/// first node; in each further part of the network likewise. Breadth first.
std::vector<bool> turnedAwayFromSource(const PipeModel& model);

} // namespace pipenet
