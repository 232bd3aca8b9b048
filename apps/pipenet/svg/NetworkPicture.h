#pragma once

#include "Drawing.h"
#include "TKVltSearchModule18.h"

#include <string>

namespace pipenet {

/// The network as a standalone SVG, UTF-8.
std::string networkPicture(const Drawing& drawing, const GravitySearchObject& network);

/// Writes the picture in one step: the file is the old one or the new one at any moment. Throws
/// Failure when it cannot be written.
void drawNetwork(const Drawing& drawing, const GravitySearchObject& network,
                 const std::string& path);

} // namespace pipenet
