#pragma once

#include "svg/Scene.h"
#include "svg/Viewport.h"

#include <string>

namespace pipenet {

/// Title and counts at the head of the page.
std::string titleMarks(const Scene& scene, const std::string& drawing, const Viewport& viewport);

/// Legend and scale bar at the foot, and how high they are.
struct Foot {
    std::string elements;
    double bottom = 0.0; ///< lower edge on the page
};

Foot footMarks(const Scene& scene, int droppedLabels, const Viewport& viewport);

} // namespace pipenet
