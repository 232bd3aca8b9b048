#pragma once

#include "EmbeddedHost.h"
#include "PlanCurve.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

enum class ExchangeNodeKind { well, tank, joint };
enum class ExchangeDevice { none, valve, pump };

/// A node of a found network as files take it. Heights are metres.
struct ExchangeNode {
    ExchangeNodeKind kind = ExchangeNodeKind::joint;
    AcDbObjectId entity; ///< null for a joint of mains without a well
    std::string number;  ///< what the drawing calls it, may be empty
    std::string name;    ///< what the file calls it
    PlanPoint at;        ///< drawing units
    double length = 0.0; ///< of a tank, metres
    double width = 0.0;
    std::optional<double> bottom, ground, waterLevel;
    std::optional<double> lowestPipe; ///< the lowest pipe end here
};

/// A pipe of it, from where the water comes to where it goes.
struct ExchangeLink {
    ExchangeDevice device = ExchangeDevice::none;
    std::vector<AcDbObjectId> pipes; ///< in the order of the water
    std::string number;
    std::string name;
    std::size_t from = 0; ///< indices of nodes
    std::size_t to = 0;
    std::vector<PlanPoint> path; ///< from pipe end to pipe end, drawing units; at least two points
    double length = 0.0;         ///< metres
    bool lengthIsGiven = false;  ///< by a text, not by the drawing
    int diameter = 0;            ///< millimetres
    double slope = 0.0;
    std::string material;
    std::optional<double> startElevation, endElevation; ///< metres
};

/// A valve or a meter on a pipe of a main.
struct ExchangeFitting {
    bool isValve = false;
    AcDbObjectId entity;
    std::string number;
    PlanPoint at;
    std::size_t link = 0;
};

struct ExchangeNetwork {
    bool isGravity = false;
    std::string system;
    double metresOfUnit = 1.0;
    std::size_t root = 0;
    std::vector<ExchangeNode> nodes;
    std::vector<ExchangeLink> links;
    std::vector<ExchangeFitting> fittings;
    std::vector<std::string> notes;
};

} // namespace pipenet
