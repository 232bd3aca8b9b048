#pragma once

#include "exchange/PipeModel.h"

#include <vector>

namespace pipenet {

/// How the drawing is to be read: the units that the layout has to keep to.
struct LayoutUnits {
    double perMetre = 1.0; ///< drawing units of a metre
    double reach = 0.4;    ///< how far the ends of pressure pipes join, drawing units
};

/// A node as it is drawn, in drawing units.
struct DrawnNode {
    PlanPoint at;
    bool isTank = false;
    double radius = 0.0;     ///< of a well; of a tank, of the circle around it
    double halfLength = 0.0; ///< of a tank
    double halfWidth = 0.0;
};

/// A link as it is drawn: from its first to its last point, drawing units. Without points when
/// there is no room for it.
struct DrawnLink {
    std::vector<PlanPoint> points;
    bool isTurned = false; ///< drawn from the link's second node to its first
};

struct ModelLayout {
    std::vector<DrawnNode> nodes;
    std::vector<DrawnLink> links;
};

/// Lays a model out as a drawing that the search reads as the same network.
///
/// Sewers run from rim to rim, since a pipe belongs to the well that its end touches: wells are as
/// wide as usual unless a shorter pipe, or another node beside, leaves less room, and tanks
/// likewise. Mains meet at the nodes themselves, since their ends join by reach alone, and are
/// drawn away from the first reservoir or tank: a straight run of several pieces that is drawn
/// towards where it is read from would be turned about. A pipe of one drawing unit or less is none,
/// so a link that is shorter has no shape. Adds notes to the model.
ModelLayout layOut(PipeModel& model, const LayoutUnits& units);

} // namespace pipenet
