#pragma once

#include "svg/Scene.h"
#include "svg/Viewport.h"

#include <string>

namespace pipenet {

/// The labels of a picture as SVG elements.
struct Labels {
    std::string elements;
    int dropped = 0; ///< labels for which there was no room
};

/// Names the nodes and states the diameters. The root, the path and tanks come first; a label that
/// would cover a node or another label is left out.
Labels placeLabels(const Scene& scene, const Viewport& viewport);

} // namespace pipenet
