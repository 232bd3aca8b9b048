#pragma once

#include "Drawing.h"
#include "PlanCurve.h"
#include "TKVltSearchModule18.h"

#include <string>
#include <vector>

namespace pipenet {

/// A box in plan, drawing units.
struct PlanBox {
    double left = 0.0;
    double bottom = 0.0;
    double right = 0.0;
    double top = 0.0;
};

enum class NodeShape { round, square, box };

/// A well or tank of the network as it is drawn.
struct SceneNode {
    PlanPoint place;
    NodeShape shape = NodeShape::round;
    double radius = 0.0;   ///< drawing units
    double rotation = 0.0; ///< radians, of a square
    PlanBox box;           ///< of a tank
    std::string name;
    bool merged = false;
    bool root = false;
    bool pathEnd = false;
    bool onPath = false;
};

/// A segment of the network as it is drawn.
struct SceneRun {
    std::vector<PlanCurve> curves; ///< its pipes
    PlanPoint from;                ///< node at the start
    PlanPoint to;                  ///< node at the end
    bool flowReversed = false;
    bool onPath = false;
    int diameter = 0; ///< millimetres
    PlanPoint label;
    PlanPoint labelDirection;
};

/// What the picture of a network shows, in drawing units.
struct Scene {
    std::string system;
    std::string summary; ///< counts and length in words
    std::vector<SceneNode> nodes;
    std::vector<SceneRun> runs;
    std::vector<PlanCurve> context; ///< all pipes of the drawing
};

/// Reads the geometry that belongs to a network. Cost: one look at each pipe of the drawing.
Scene makeScene(const Drawing& drawing, const GravitySearchObject& network);

} // namespace pipenet
