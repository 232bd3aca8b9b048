#pragma once

#include "TKVltSearchModule18.h"

#include <string>

namespace pipenet {

/// What a node is called: its number, or its handle without one.
std::string nodeName(const Well& well);
/// "well", "square well" or "tank".
std::string nodeKind(const Well& well);

/// Counts, length and root of a network in a few words.
std::string networkSummary(const GravitySearchObject& network);

/// A gravity network for a person to read: a head with the counts, then the tree with one line a
/// node. A branch is indented; a node that alone continues its run is not, and the indentation
/// stops growing at some depth, so a long run stays readable.
std::string networkTable(const GravitySearchObject& network);

/// One segment, field by field.
std::string segmentTable(const GravitySeg& seg, int result);

} // namespace pipenet
