#pragma once

#include "TKVltSearchModule18.h"

#include <string>

namespace pipenet {

/// A pressure network for a person to read: a head with the counts, then one line a run of pipe,
/// children behind their parent. Not const: the segments' own operations are not.
std::string pressureTable(PressureSearchObject& network);

/// Counts and length of a network in a few words.
std::string pressureCounts(PressureSearchObject& network);

/// One run of pipe, field by field.
std::string pressureSegmentTable(PressureSeg& seg);

} // namespace pipenet
