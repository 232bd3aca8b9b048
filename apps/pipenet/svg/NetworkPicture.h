#pragma once

#include "svg/Scene.h"

#include <string>

namespace pipenet {

/// The network as a standalone SVG, UTF-8.
std::string networkPicture(const Scene& scene, const std::string& drawing);

/// Draws the network found in `drawing` into `path` in one step: the file is the old one or the new
/// one at any moment. Throws Failure when it cannot be written.
void drawScene(const Scene& scene, const std::string& drawing, const std::string& path);

} // namespace pipenet
