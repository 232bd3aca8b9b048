// The order of work: places, room around each node, sizes, paths of the links, and for mains the
// sense in which each is drawn.
#include "exchange/ModelLayout.h"

#include "exchange/AwayFromSource.h"
#include "exchange/MainCrossings.h"
#include "exchange/MapScale.h"
#include "exchange/NearestNode.h"
#include "Messages.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pipenet {

namespace {

constexpr double kShortestPipe = 1.02; ///< drawing units; one or less is no pipe
constexpr double kLeastRadius = 0.005; ///< drawing units
/// Of a node's room: its pipes' ends count as touching up to its diameter, and the neighbour's ends
/// stand at the neighbour's rim.
constexpr double kShareOfRoom = 1.0 / 3.0;
constexpr double kClearance = 0.05; ///< drawing units
constexpr double kIntoTank = 0.05;  ///< drawing units

/// Usual sizes in metres.
struct UsualSizes {
    double wellRadius;
    double tankHalfLength;
    double tankHalfWidth;
};
constexpr UsualSizes kSewerSizes{0.35, 4.0, 2.5};
constexpr UsualSizes kMainSizes{0.25, 3.0, 2.0};

PlanPoint towards(const PlanPoint& start, const PlanPoint& end, double way) {
    const double share = way / distance(start, end);
    return {start.x + (end.x - start.x) * share, start.y + (end.y - start.y) * share};
}

class Layouter {
public:
    Layouter(PipeModel& model, const LayoutUnits& units)
        : model_(model), units_(units), isSewer_(model.format == ModelFormat::swmm),
          sizes_(isSewer_ ? kSewerSizes : kMainSizes) {}

    ModelLayout run() {
        placeNodes();
        if (isSewer_) {
            narrowForPipes();
        }
        roundSizes();
        for (const ModelLink& link : model_.links) {
            layout_.links.push_back(shapeOf(link));
        }
        noteWhatHasNoRoom();
        if (!isSewer_) {
            turnAwayFromSource();
            noteCrossings();
        }
        return std::move(layout_);
    }

private:
    void placeNodes();
    void narrowForPipes();
    void roundSizes();
    void setTank(DrawnNode& node, double room) const;
    double wellRoom(double nearest) const;
    std::vector<PlanPoint> pathOf(const ModelLink& link) const;
    DrawnLink shapeOf(const ModelLink& link) const;
    PlanPoint rim(const DrawnNode& node, const PlanPoint& next) const;
    void noteWhatHasNoRoom();
    void turnAwayFromSource();
    void noteCrossings();

    PipeModel& model_;
    LayoutUnits units_;
    bool isSewer_;
    UsualSizes sizes_;
    double scale_ = 1.0; ///< drawing units of a map unit
    ModelLayout layout_;
};

/// The radius that the room around a well allows.
double Layouter::wellRoom(double nearest) const {
    const double room =
        isSewer_ ? (nearest - kClearance) * kShareOfRoom : nearest - units_.reach - kClearance;
    return std::max(kLeastRadius, std::min(sizes_.wellRadius * units_.perMetre, room));
}

void Layouter::setTank(DrawnNode& node, double room) const {
    const double usual = std::hypot(sizes_.tankHalfLength, sizes_.tankHalfWidth) * units_.perMetre;
    node.isTank = true;
    node.radius = std::max(kClearance, std::min(usual, room));
    node.halfLength = sizes_.tankHalfLength * units_.perMetre * node.radius / usual;
    node.halfWidth = sizes_.tankHalfWidth * units_.perMetre * node.radius / usual;
}

void Layouter::placeNodes() {
    scale_ = metresOfMapUnit(model_) * units_.perMetre;
    std::vector<PlanPoint> places;
    for (const ModelNode& node : model_.nodes) {
        places.push_back({node.at.x * scale_, node.at.y * scale_});
    }
    const double around = 2.0 * sizes_.tankHalfLength * units_.perMetre + kShortestPipe;
    const std::vector<double> nearest = nearestOthers(places, around);
    for (std::size_t i = 0; i < places.size(); ++i) {
        DrawnNode node;
        node.at = places[i];
        const ModelNodeKind kind = model_.nodes[i].kind;
        if (kind == ModelNodeKind::junction || kind == ModelNodeKind::outfall) {
            node.radius = wellRoom(nearest[i]);
        } else {
            setTank(node, nearest[i] - wellRoom(nearest[i]) - kShortestPipe - kClearance);
        }
        layout_.nodes.push_back(node);
    }
}

/// A pipe keeps more than one drawing unit between the rims, and its first bend outside of them.
void Layouter::narrowForPipes() {
    for (const ModelLink& link : model_.links) {
        DrawnNode& from = layout_.nodes[link.from];
        DrawnNode& to = layout_.nodes[link.to];
        const std::vector<PlanPoint> path = pathOf(link);
        const double room = distance(from.at, to.at) - kShortestPipe;
        const double legs[] = {distance(path[0], path[1]),
                               distance(path[path.size() - 2], path.back())};
        DrawnNode* const ends[] = {&from, &to};
        for (int i = 0; i < 2; ++i) {
            const DrawnNode& other = *ends[1 - i];
            const double share = other.isTank ? room - other.radius : room / 2.0;
            double most = std::max(kLeastRadius, share);
            if (path.size() > 2) {
                most = std::min(most, std::max(kLeastRadius, 0.9 * legs[i]));
            }
            if (!ends[i]->isTank) {
                ends[i]->radius = std::min(ends[i]->radius, most);
            }
        }
    }
}

/// Texts give diameters in whole millimetres, and the search reads the texts.
void Layouter::roundSizes() {
    for (DrawnNode& node : layout_.nodes) {
        if (!node.isTank) {
            const double millimetres = std::floor(2000.0 * node.radius / units_.perMetre + 1e-9);
            node.radius = std::max(1.0, millimetres) / 2000.0 * units_.perMetre;
        }
    }
}

std::vector<PlanPoint> Layouter::pathOf(const ModelLink& link) const {
    std::vector<PlanPoint> path{layout_.nodes[link.from].at};
    for (const PlanPoint& vertex : link.vertices) {
        const PlanPoint next{vertex.x * scale_, vertex.y * scale_};
        if (distance(path.back(), next) > 0.0) {
            path.push_back(next);
        }
    }
    while (path.size() > 1 && distance(path.back(), layout_.nodes[link.to].at) == 0.0) {
        path.pop_back();
    }
    path.push_back(layout_.nodes[link.to].at);
    return path;
}

/// Where a sewer that comes from `next` ends: at a well's rim, or a little inside a tank's wall.
PlanPoint Layouter::rim(const DrawnNode& node, const PlanPoint& next) const {
    if (!node.isTank) {
        return towards(node.at, next, node.radius);
    }
    constexpr double none = std::numeric_limits<double>::infinity();
    const double dx = std::abs(next.x - node.at.x);
    const double dy = std::abs(next.y - node.at.y);
    const double into = std::min(kIntoTank, 0.2 * node.halfWidth);
    const double acrossLength = dx > 0.0 ? (node.halfLength - into) / dx : none;
    const double acrossWidth = dy > 0.0 ? (node.halfWidth - into) / dy : none;
    return towards(node.at, next, std::min(acrossLength, acrossWidth) * std::hypot(dx, dy));
}

DrawnLink Layouter::shapeOf(const ModelLink& link) const {
    DrawnLink shape;
    const DrawnNode& from = layout_.nodes[link.from];
    const DrawnNode& to = layout_.nodes[link.to];
    if (distance(from.at, to.at) < kShortestPipe) {
        return shape;
    }
    shape.points = pathOf(link);
    if (isSewer_) {
        const PlanPoint first = rim(from, shape.points[1]);
        shape.points.back() = rim(to, shape.points[shape.points.size() - 2]);
        shape.points.front() = first;
    }
    // The search measures a pipe between its ends.
    if (distance(shape.points.front(), shape.points.back()) <= 1.0 + 1e-6) {
        shape.points.clear();
    }
    return shape;
}

void Layouter::noteWhatHasNoRoom() {
    for (std::size_t i = 0; i < layout_.links.size(); ++i) {
        if (layout_.links[i].points.empty()) {
            const ModelLink& link = model_.links[i];
            model_.notes.push_back(textOf(
                {0, "{} is left out: its ends are {:.3g} drawing units apart, and a pipe of one "
                    "unit or less is none; a smaller --draw-scale gives it room"},
                link.name, distance(layout_.nodes[link.from].at, layout_.nodes[link.to].at)));
        }
    }
}

void Layouter::turnAwayFromSource() {
    const std::vector<bool> turned = turnedAwayFromSource(model_);
    for (std::size_t i = 0; i < turned.size(); ++i) {
        DrawnLink& shape = layout_.links[i];
        shape.isTurned = turned[i];
        if (turned[i]) {
            std::reverse(shape.points.begin(), shape.points.end());
        }
    }
}

void Layouter::noteCrossings() {
    const auto crossings = mainCrossings(model_, layout_);
    if (!crossings.empty()) {
        const auto& [a, b] = crossings.front();
        model_.notes.push_back(textOf({0, "pipes cross though they do not join, and a search takes "
                                          "crossing mains for joined ({} places, the first of {} "
                                          "and {})"},
                                      crossings.size(), model_.links[a].name,
                                      model_.links[b].name));
    }
}

} // namespace

ModelLayout layOut(PipeModel& model, const LayoutUnits& units) {
    return Layouter(model, units).run();
}

} // namespace pipenet
