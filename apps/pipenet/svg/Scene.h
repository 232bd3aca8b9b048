#pragma once

#include "CurveChanges.h"
#include "Drawing.h"
#include "PlanCurve.h"
#include "svg/Style.h"
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

enum class NodeShape { round, square, box, junction, valve, meter, pickedEnd, cut };

/// A well, tank, fitting or joint of the network as it is drawn.
struct SceneNode {
    PlanPoint place;
    NodeShape shape = NodeShape::round;
    double radius = 0.0;   ///< drawing units
    double rotation = 0.0; ///< radians, of a square well and of a valve
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
    bool isLowered = false; ///< drawn over the network's own run, which has the arrow
    int diameter = 0;       ///< millimetres
    const char* colour = style::kNetwork;
    PlanPoint label;
    PlanPoint labelDirection;
};

/// The pipes of one colour.
struct SceneSize {
    std::string text;
    const char* colour;
};

/// What the picture of a network shows, in drawing units.
struct Scene {
    std::string kind; ///< "gravity" or "pressure" network, or "cuts" of lines
    std::string system;
    std::string summary; ///< counts and length in words
    std::vector<SceneNode> nodes;
    std::vector<SceneRun> runs;
    std::vector<PlanCurve> context; ///< all pipes of the drawing
    std::vector<SceneSize> sizes;   ///< what the colours of the runs mean; empty for one colour
    bool showsFlow = false;         ///< arrows in the direction of the water
};

/// Reads the geometry that belongs to a network. Cost: one look at each pipe of the drawing.
Scene makeScene(const Drawing& drawing, const GravitySearchObject& network);

/// The same for a pressure network, its runs coloured by diameter.
Scene makeScene(const Drawing& drawing, PressureSearchObject& network);

/// The network around lowered pipes, those in a colour of their own; without a network (null) the
/// pipes alone.
Scene loweringScene(const Drawing& drawing, const GravitySearchObject* network,
                    const std::vector<AcDbObjectId>& lowered);

/// Lines that were cut and their new pieces, over the other curves of the drawing, and the places
/// at which an end lies now.
Scene cutScene(const Drawing& drawing, const CurveChanges& changes);

/// All pipes of the drawing.
std::vector<PlanCurve> drawnPipes(const Drawing& drawing);

} // namespace pipenet
