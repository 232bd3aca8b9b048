#pragma once

#include "Drawing.h"
#include "exchange/ExchangeNetwork.h"
#include "TKVltSearchModule18.h"

namespace pipenet {

/// A found gravity network as files take it: the wells and segments of the search; heights, paths
/// and lengths from the pipes themselves.
ExchangeNetwork readNetwork(const GravitySearchObject& found);

/// A found pressure network as files take it. Runs that the search has merged come apart into their
/// pipes again, and where pipes end there are nodes, named after the well or tank that stands
/// there.
ExchangeNetwork readNetwork(PressureSearchObject& found, const Drawing& drawing);

/// Fills in what the node's entity says of itself: heights, a tank's size and name.
void readNodeTexts(ExchangeNode& node, double metresOfUnit);

/// Notes at each node the lowest of the pipe ends there.
void collectPipeHeights(ExchangeNetwork& network);

} // namespace pipenet
