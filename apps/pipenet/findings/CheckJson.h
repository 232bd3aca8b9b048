#pragma once

#include "CheckReport.h"
#include "JsonText.h"

#include <string>

namespace pipenet {

/// "gravity", "pressure" or "unknown".
const char* flowName(int flow);

/// "well", "tank", "valve", "meter" or "junction".
const char* nodeKindName(CheckedNodeKind kind);

/// Metres of all runs of a network.
double lengthOf(const CheckedNetwork& network);

/// How many nodes of a network stand for a block: wells, tanks, valves and meters.
std::ptrdiff_t blocksOf(const CheckedNetwork& network);

/// A finding's fields beside its place.
Json findingJson(const Finding& finding);

/// Handles of entities, in their order.
Json handlesJson(const std::vector<AcDbObjectId>& ids);

/// The whole report as one object with its line end.
std::string checkJson(const CheckReport& report);

} // namespace pipenet
