#pragma once

#include "PlanCurve.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

enum class ModelFormat { swmm, epanet };
enum class ModelNodeKind { junction, outfall, storage, reservoir, tank };
enum class ModelDevice { none, valve, pump };

/// A node of a hydraulic model. Heights are metres.
struct ModelNode {
    std::string name;
    ModelNodeKind kind = ModelNodeKind::junction;
    int line = 0;
    bool placed = false; ///< the map says where it is
    PlanPoint at;        ///< map units as given
    double bottom = 0.0; ///< invert of a sewer's node, elevation of a main's, head of a reservoir
    std::optional<double> ground;
};

/// A pipe of a hydraulic model, or a device that a drawing shows as one.
struct ModelLink {
    std::string name;
    int line = 0;
    std::size_t from = 0; ///< indices of nodes
    std::size_t to = 0;
    ModelDevice device = ModelDevice::none;
    std::optional<double> length; ///< metres
    int diameter = 0;             ///< millimetres; height of a section that is not round
    double startElevation = 0.0;  ///< metres
    double endElevation = 0.0;
    std::string material;
    std::vector<PlanPoint> vertices; ///< map units as given
};

/// A model with lengths and heights in metres and the map as it stands in the file.
struct PipeModel {
    ModelFormat format = ModelFormat::swmm;
    double mapUnit = 1.0; ///< metres that a map unit measures by the model's units
    std::vector<ModelNode> nodes;
    std::vector<ModelLink> links;
    std::vector<std::string> notes; ///< what the model says and a drawing cannot hold
};

/// Reads a model in SWMM or EPANET input format, told apart by its sections. Throws Failure with
/// file, line and cause for a damaged one.
PipeModel readModel(const std::string& path);

} // namespace pipenet
