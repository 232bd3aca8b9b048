#pragma once

#include "svg/Page.h"
#include "svg/Scene.h"

#include <string>

namespace pipenet {

/// Whether the shape is one of the symbols of a pressure network.
bool isFitting(NodeShape shape);

/// The symbol of a junction, valve, meter or picked end, `size` times as large as on a small page;
/// `rotation` in radians, counter-clockwise in the drawing.
std::string fittingMark(const PagePoint& place, NodeShape shape, double rotation, double size);

} // namespace pipenet
