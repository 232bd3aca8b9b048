#include "report/PictureData.h"

#include "findings/CheckJson.h"
#include "findings/RunPath.h"
#include "HandleText.h"
#include "OpenedObject.h"
#include "PlanCurve.h"
#include "records/XdataKeys.h"
#include "Systems.h"

#include <cmath>
#include <optional>

namespace pipenet {

namespace {

// A place beyond this would leave no digits for the drawing itself.
constexpr double kFarthest = 1e12;
// A picture needs no more; digits that nobody sees would be most of a large page.
constexpr double kSteps = 1e6;

double rounded(double value) {
    const double steps = value * kSteps;
    return std::abs(steps) < 1e15 ? std::round(steps) / kSteps : value;
}

bool isDrawable(const PlanPoint& place) {
    return std::abs(place.x) <= kFarthest && std::abs(place.y) <= kFarthest;
}

/// x, y, bulge, x, y ... x, y; empty for a curve that cannot be drawn.
Json curveJson(const PlanCurve& curve) {
    if (curve.steps.empty() || !isDrawable(curve.start)) {
        return Json::array();
    }
    Json points = Json::array({rounded(curve.start.x), rounded(curve.start.y)});
    for (const PlanStep& step : curve.steps) {
        if (!isDrawable(step.end) || !std::isfinite(step.bulge)) {
            return Json::array();
        }
        points.push_back(step.bulge);
        points.push_back(rounded(step.end.x));
        points.push_back(rounded(step.end.y));
    }
    return points;
}

using PipeIndices = std::unordered_map<AcDbObjectId, int>;

void addPipe(PictureData& data, PipeIndices& pipes, const NetworkEntity& entity,
             const ReportIndex& index) {
    Json curve = curveJson(planCurve(entity.id));
    if (curve.empty()) {
        return;
    }
    pipes.emplace(entity.id, static_cast<int>(data.pipes.size()));
    data.pipes.push_back({{"handle", idJson(entity.id)},
                          {"system", index.system(utf8(entity.systemName))},
                          {"network", index.place(entity.id).network},
                          {"curve", std::move(curve)}});
}

/// Left, bottom, right and top of a tank; null for what has no extents.
Json boxJson(const AcDbObjectId& tank) {
    const siblings::OpenedObject<AcDbBlockReference> block(tank, AcDb::kForRead);
    AcDbExtents box;
    if (!block || block->geomExtentsBestFit(box) != Acad::eOk ||
        !isDrawable({box.minPoint().x, box.minPoint().y}) ||
        !isDrawable({box.maxPoint().x, box.maxPoint().y})) {
        return nullptr;
    }
    return Json::array({rounded(box.minPoint().x), rounded(box.minPoint().y),
                        rounded(box.maxPoint().x), rounded(box.maxPoint().y)});
}

double drawableRadius(double radius) {
    return radius >= 0.0 && radius <= kFarthest ? rounded(radius) : 0.0;
}

double radiusOf(const NetworkEntity& entity, const NetworkPlace& place) {
    return place.node != nullptr ? place.node->radius
                                 : _Block(entity.id, CString(), entity.systemName).radius;
}

void addNode(PictureData& data, const NetworkEntity& entity, const ReportIndex& index) {
    const siblings::OpenedObject<AcDbBlockReference> block(entity.id, AcDb::kForRead);
    Json at = block ? placeJson({block->position().x, block->position().y}) : Json(nullptr);
    if (at.is_null()) {
        return;
    }
    const NetworkPlace place = index.place(entity.id);
    const bool isTank = entity.kind == EntityKind::tank;
    const CheckedNodeKind drawn = isTank ? CheckedNodeKind::tank : CheckedNodeKind::well;
    const CheckedNodeKind kind = place.node != nullptr ? place.node->kind : drawn;
    data.nodes.push_back({{"handle", idJson(entity.id)},
                          {"kind", nodeKindName(kind)},
                          {"number", utf8(XdataText(entity.id, xdata::kWellNumber))},
                          {"system", index.system(utf8(systemNameOf(entity.id)))},
                          {"network", place.network},
                          {"at", std::move(at)},
                          {"radius", drawableRadius(radiusOf(entity, place))},
                          {"box", isTank ? boxJson(entity.id) : Json(nullptr)}});
}

/// A mere joint has no entity, so the network alone knows of it.
void addJoints(PictureData& data, const CheckedNetwork& network, int number, int system) {
    for (const CheckedNode& node : network.nodes) {
        Json at = placeJson({node.place.x, node.place.y});
        if (node.entity.isNull() && !at.is_null()) {
            data.nodes.push_back({{"handle", nullptr},
                                  {"kind", nodeKindName(node.kind)},
                                  {"number", node.number},
                                  {"system", system},
                                  {"network", number},
                                  {"at", std::move(at)},
                                  {"radius", 0.0},
                                  {"box", nullptr}});
        }
    }
}

/// The place half the way along the run and the direction in which the water passes it; null for a
/// run without length.
Json arrowJson(const CheckedRun& run) {
    const std::vector<PlanPoint> path = runPath(run);
    double left = 0.0;
    for (std::size_t i = 1; i < path.size(); ++i) {
        left += distance(path[i - 1], path[i]) / 2.0;
    }
    for (std::size_t i = 1; i < path.size(); ++i) {
        const double dx = path[i].x - path[i - 1].x;
        const double dy = path[i].y - path[i - 1].y;
        const double length = std::hypot(dx, dy);
        if (length >= left && length > 0.0) {
            const double part = left / length;
            Json at = placeJson({path[i - 1].x + part * dx, path[i - 1].y + part * dy});
            if (at.is_null()) {
                return nullptr;
            }
            const double side = run.flowReversed ? -1.0 : 1.0;
            at.push_back(std::atan2(side * dy, side * dx));
            return at;
        }
        left -= length;
    }
    return nullptr;
}

Json drawnPipes(const CheckedRun& run, const PipeIndices& pipes) {
    Json drawn = Json::array();
    for (const AcDbObjectId& pipe : run.pipes) {
        if (const auto found = pipes.find(pipe); found != pipes.end()) {
            drawn.push_back(found->second);
        }
    }
    return drawn;
}

void addRuns(PictureData& data, const CheckedNetwork& network, int number, int system,
             const PipeIndices& pipes) {
    for (const CheckedRun& run : network.runs) {
        data.runs.push_back({{"system", system},
                             {"network", number},
                             {"pipes", drawnPipes(run, pipes)},
                             {"diameter", run.diameter},
                             {"material", run.material},
                             {"length", run.length},
                             {"startElevation", run.startElevation},
                             {"endElevation", run.endElevation},
                             {"arrow", arrowJson(run)}});
    }
}

} // namespace

Json placeJson(const PlanPoint& place) {
    if (!isDrawable(place)) {
        return nullptr;
    }
    return Json::array({rounded(place.x), rounded(place.y)});
}

PictureData pictureData(const Drawing& drawing, const CheckReport& report,
                        const ReportIndex& index) {
    PictureData data;
    PipeIndices pipes;
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        if (entity.kind == EntityKind::pipe) {
            addPipe(data, pipes, entity, index);
        } else {
            addNode(data, entity, index);
        }
    }
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        const CheckedNetwork& network = report.networks[i];
        const int system = index.system(network.system);
        addRuns(data, network, static_cast<int>(i), system, pipes);
        addJoints(data, network, static_cast<int>(i), system);
    }
    return data;
}

} // namespace pipenet
