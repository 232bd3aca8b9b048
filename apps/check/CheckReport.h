#pragma once

#include "CheckApi.h"
#include "EmbeddedHost.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

/// How much a finding matters: an error keeps a network from being what was drawn, a warning may,
/// a note only tells.
enum class Severity { error, warning, note };

/// "error", "warning" or "note".
PIPENET_CHECK_API const char* severityName(Severity severity);

/// Something in the drawing that an engineer should look at. Texts are UTF-8.
struct Finding {
    std::string code; ///< stable, lower case with hyphens, e.g. "dead-end"
    Severity severity = Severity::warning;
    std::string system;                 ///< empty for an entity of no system
    std::vector<AcDbObjectId> entities; ///< the one to look at first, then the others concerned
    AcGePoint3d place;                  ///< where to look, drawing units
    std::optional<double> measured;
    std::optional<double> limit; ///< what `measured` missed
    std::string unit;            ///< of both: "m", "°", "‰", "mm", or empty
    std::string sentence;        ///< what is the matter and what to do
    int network = -1;            ///< index in the report's networks; -1 for none
};

enum class CheckedNodeKind { well, tank, valve, meter, junction };

/// A node of a checked network.
struct CheckedNode {
    AcDbObjectId entity;              ///< null for a mere joint
    std::vector<AcDbObjectId> merged; ///< wells that became this node beside `entity`
    CheckedNodeKind kind = CheckedNodeKind::well;
    std::string number;
    AcGePoint3d place;   ///< drawing units
    double radius = 0.0; ///< drawing units
};

/// A segment of a checked network.
struct CheckedRun {
    std::vector<AcDbObjectId> pipes;
    int from = -1; ///< index in the network's nodes; -1 for none
    int to = -1;
    AcGePoint3d start; ///< drawing units
    AcGePoint3d end;
    bool flowReversed = false; ///< the water runs from `to` to `from`
    int diameter = 0;          ///< millimetres
    std::string material;
    double length = 0.0; ///< metres
    double startElevation = 0.0;
    double endElevation = 0.0;
};

/// A network of the drawing as the module rebuilds it.
struct CheckedNetwork {
    std::string system;
    bool isPressure = false;
    AcDbObjectId root; ///< the entity that it was searched from
    std::vector<CheckedNode> nodes;
    std::vector<CheckedRun> runs;
};

/// What is laid of one size and material.
struct LaidLength {
    int diameter = 0; ///< millimetres
    std::string material;
    int runs = 0;
    double length = 0.0; ///< metres
};

/// The lowest or highest elevation of a system, in metres.
struct ExtremePoint {
    double elevation = 0.0;
    AcDbObjectId entity; ///< the pipe that has it
    AcGePoint3d place;
};

/// The figures with which a system closes.
struct SystemFigures {
    std::string name;
    int flow = -1;    ///< as `PelGetDirectionSytle` tells it
    std::string flag; ///< empty when the settings have none
    int pipes = 0;
    int wells = 0;
    int tanks = 0;
    int networks = 0;
    double length = 0.0; ///< metres, of all runs
    std::vector<LaidLength> lengths;
    std::optional<ExtremePoint> lowest;
    std::optional<ExtremePoint> highest;
};

/// All that a check of a drawing found.
struct CheckReport {
    std::vector<Finding> findings; ///< by severity, then system, code and place
    std::vector<CheckedNetwork> networks;
    std::vector<SystemFigures> systems; ///< in order of first occurrence in the drawing
    std::vector<AcDbObjectId> loose;    ///< pipes, wells and tanks of no network
};

} // namespace pipenet
