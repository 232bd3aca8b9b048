#pragma once

#include "svg/Scene.h"
#include "svg/Viewport.h"

#include <string>

namespace pipenet {

/// The box that a node's mark takes on the page.
PageBox nodeBox(const SceneNode& node, const Viewport& viewport);

/// How long the arrow on a segment is; it follows the width of the pipe. It is as wide as long.
double arrowLength(const SceneRun& run, const Viewport& viewport);

/// All pipes of the drawing, faint.
std::string contextMarks(const Scene& scene, const Viewport& viewport);
/// The network's pipes, those on the path above the others.
std::string runMarks(const Scene& scene, const Viewport& viewport);
/// An arrow on each segment, in the direction of the water.
std::string flowMarks(const Scene& scene, const Viewport& viewport);
/// Wells and tanks.
std::string nodeMarks(const Scene& scene, const Viewport& viewport);

/// A flow arrow of `length` pixels; `angle` in degrees, clockwise on the page.
std::string arrowMark(const PagePoint& place, double angle, const char* colour, double length);
/// A round or square well.
std::string wellMark(const PagePoint& place, double radius, NodeShape shape, double rotation,
                     const char* colour, bool filled);

} // namespace pipenet
