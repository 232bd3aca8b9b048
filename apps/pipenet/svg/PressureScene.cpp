#include "svg/Scene.h"

#include "HandleText.h"
#include "PressureTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <numbers>

namespace pipenet {

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kQuarterTurn = kFullTurn / 4.0;

// From the smallest pipes to the largest: light to dark, so that the order shows without colours.
constexpr std::array<const char*, 6> kSizeColours = {"#35B779", "#1F9E89", "#26828E",
                                                     "#31688E", "#443A83", "#440154"};

/// The part of a circle from one place to another: signed turn, positive counter-clockwise.
struct Turn {
    PlanPoint center;
    double radius;
    double firstAngle;
    double turn;

    PlanPoint at(double part) const {
        const double angle = firstAngle + turn * part;
        return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    }
};

/// How far the middle of the turn lies from the pipes of the run.
double distanceToPipes(const Turn& turn, const PressureSeg& seg) {
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < seg.pipeIds.length(); ++i) {
        least = std::min(least, distance(planCurve(seg.pipeIds[i]), turn.at(0.5)));
    }
    return least;
}

/// The way from the run's start to its end along its pipes. The arc of a piece that was cut off
/// reaches the other way round the circle, so the pipes themselves tell.
Turn turnOf(const PressureSeg& seg) {
    const PlanPoint center = inPlan(seg.arc.center());
    const double first = std::atan2(seg.startPoint.y - center.y, seg.startPoint.x - center.x);
    const double last = std::atan2(seg.endPoint.y - center.y, seg.endPoint.x - center.x);
    const double left = last - first + (last <= first ? kFullTurn : 0.0);
    const Turn turnsLeft{center, seg.arc.radius(), first, left};
    const Turn turnsRight{center, seg.arc.radius(), first, left - kFullTurn};
    return distanceToPipes(turnsLeft, seg) <= distanceToPipes(turnsRight, seg) ? turnsLeft
                                                                               : turnsRight;
}

/// The run's own curve: a piece cut off an entity is not the whole entity.
PlanCurve runCurve(const PressureSeg& seg) {
    PlanCurve curve;
    curve.start = inPlan(seg.startPoint);
    if (seg.isArc == 0) {
        curve.steps.push_back({inPlan(seg.endPoint), 0.0});
        return curve;
    }
    const Turn turn = turnOf(seg);
    const double quarters = std::abs(turn.turn) / kQuarterTurn;
    const int pieces = std::max(1, static_cast<int>(std::ceil(quarters - 1e-9)));
    for (int piece = 1; piece <= pieces; ++piece) {
        const PlanPoint end =
            piece == pieces ? inPlan(seg.endPoint) : turn.at(static_cast<double>(piece) / pieces);
        curve.steps.push_back({end, std::tan(turn.turn / pieces / 4.0)});
    }
    return curve;
}

/// The distinct diameters, smallest first.
std::vector<int> diametersOf(const PressureSearchObject& network) {
    std::vector<int> diameters;
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        diameters.push_back(network.segs[i].diameter);
    }
    std::sort(diameters.begin(), diameters.end());
    diameters.erase(std::unique(diameters.begin(), diameters.end()), diameters.end());
    return diameters;
}

/// Which colour the pipes of the n-th of `count` diameters get; neighbours share one where there
/// are more diameters than colours.
std::size_t colourOf(std::size_t n, std::size_t count) {
    if (count <= 1) {
        return kSizeColours.size() - 3;
    }
    return count <= kSizeColours.size() ? n * (kSizeColours.size() - 1) / (count - 1)
                                        : n * kSizeColours.size() / count;
}

void addSizes(Scene& scene, const std::vector<int>& diameters) {
    for (std::size_t first = 0; first < diameters.size();) {
        const std::size_t colour = colourOf(first, diameters.size());
        std::size_t last = first;
        while (last + 1 < diameters.size() && colourOf(last + 1, diameters.size()) == colour) {
            ++last;
        }
        scene.sizes.push_back({first == last
                                   ? fmt::format("DN{}", diameters[first])
                                   : fmt::format("DN{} to {}", diameters[first], diameters[last]),
                               kSizeColours[colour]});
        first = last + 1;
    }
}

SceneNode fitting(const AcGePoint3d& place, NodeShape shape, double rotation) {
    SceneNode node;
    node.place = inPlan(place);
    node.shape = shape;
    node.rotation = rotation;
    return node;
}

SceneRun sceneRun(PressureSeg& seg, const std::vector<int>& diameters) {
    SceneRun run;
    run.curves.push_back(runCurve(seg));
    run.from = inPlan(seg.GetBeginPoint());
    run.to = inPlan(seg.GetSearchPoint());
    run.diameter = seg.diameter;
    const auto size = std::lower_bound(diameters.begin(), diameters.end(), seg.diameter);
    run.colour = kSizeColours[colourOf(static_cast<std::size_t>(size - diameters.begin()),
                                       diameters.size())];
    const AcGeVector3d direction = seg.GetAnnnotateVector();
    run.label = inPlan(seg.GetAnnoatePoint());
    run.labelDirection = {direction.x, direction.y};
    return run;
}

/// A place where a run goes on into several.
void addJunction(Scene& scene, PressureSeg& seg) {
    if (seg.children.GetSize() > 1) {
        scene.nodes.push_back(fitting(seg.GetSearchPoint(), NodeShape::junction, 0.0));
    }
}

void addFittings(Scene& scene, PressureSeg& seg) {
    const AcGeVector3d direction = seg.GetAnnnotateVector();
    const double rotation = std::atan2(direction.y, direction.x);
    for (INT_PTR i = 0; i < seg.valvePoints.GetSize(); ++i) {
        scene.nodes.push_back(fitting(seg.valvePoints[i], NodeShape::valve, rotation));
    }
    for (INT_PTR i = 0; i < seg.meterPoints.GetSize(); ++i) {
        scene.nodes.push_back(fitting(seg.meterPoints[i], NodeShape::meter, 0.0));
    }
}

} // namespace

Scene makeScene(const Drawing& drawing, PressureSearchObject& network) {
    Scene scene;
    scene.kind = "pressure";
    scene.summary = pressureCounts(network);
    scene.system = utf8(network.segs[network.rootSeg].systemName);
    const std::vector<int> diameters = diametersOf(network);
    addSizes(scene, diameters);
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        scene.runs.push_back(sceneRun(network.segs[i], diameters));
        addJunction(scene, network.segs[i]);
    }
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        addFittings(scene, network.segs[i]);
    }
    PressureSeg& root = network.segs[network.rootSeg];
    scene.nodes.push_back(fitting(root.GetBeginPoint(), NodeShape::pickedEnd, 0.0));
    scene.context = drawnPipes(drawing);
    return scene;
}

} // namespace pipenet
