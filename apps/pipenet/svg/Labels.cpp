#include "svg/Labels.h"

#include "svg/LabelPlacer.h"
#include "svg/Marks.h"
#include "svg/Style.h"
#include "svg/SvgElements.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <numbers>
#include <optional>

namespace pipenet {

namespace {

constexpr double kGap = 3.0;
constexpr double kPadding = 1.5;
/// Letters of a label stand this high above its baseline, by its size.
constexpr double kCapHeight = 0.74;

struct Candidate {
    LabelRoom room;
    TextLook look;
};

/// Puts labels one after the other and counts those that find no room.
class Writer {
public:
    Writer(const Scene& scene, const Viewport& viewport) : placer_(viewport.area()) {
        for (const SceneNode& node : scene.nodes) {
            placer_.block(nodeBox(node, viewport));
        }
        for (const SceneRun& run : scene.runs) {
            addLines(run.curves, viewport);
        }
        addLines(scene.context, viewport);
    }

    /// Takes the free candidate that hides least; the first of equals.
    void put(const std::string& text, const std::vector<Candidate>& candidates) {
        const Candidate* best = nullptr;
        int least = std::numeric_limits<int>::max();
        for (const Candidate& candidate : candidates) {
            const int hidden = placer_.hidden(candidate.room);
            if (hidden < least && placer_.isFree(candidate.room)) {
                best = &candidate;
                least = hidden;
            }
        }
        if (best == nullptr) {
            ++labels_.dropped;
            return;
        }
        placer_.take(best->room);
        labels_.elements += svgText(baseline(*best), text, best->look);
    }

    void drop() { ++labels_.dropped; }
    Labels take() { return std::move(labels_); }

private:
    void addLines(const std::vector<PlanCurve>& curves, const Viewport& viewport) {
        for (const PlanCurve& curve : curves) {
            const std::vector<PlanPoint> points = flattened(curve);
            for (std::size_t i = 1; i < points.size(); ++i) {
                placer_.addLine(viewport.toPage(points[i - 1]), viewport.toPage(points[i]));
            }
        }
    }

    static PagePoint baseline(const Candidate& candidate) {
        const double down = candidate.look.size * kCapHeight / 2.0;
        const double angle = candidate.room.angle;
        return {candidate.room.center.x - down * std::sin(angle),
                candidate.room.center.y + down * std::cos(angle)};
    }

    LabelPlacer placer_;
    Labels labels_;
};

TextLook nodeLook(const SceneNode& node) {
    TextLook look;
    look.size = style::kNumberSize;
    look.colour = node.onPath ? style::kPath : style::kInk;
    look.bold = node.root || node.pathEnd;
    look.anchor = Anchor::middle;
    look.halo = true;
    return look;
}

std::string nodeText(const SceneNode& node) {
    std::string text = node.name;
    text += node.root ? " root" : "";
    text += node.pathEnd ? " end" : "";
    return node.shape == NodeShape::pickedEnd ? "picked end" : text;
}

/// Places around the node's box: right and above first, as in a drawing by hand.
std::vector<Candidate> aroundNode(const SceneNode& node, const Viewport& viewport) {
    const TextLook look = nodeLook(node);
    const PageBox box = nodeBox(node, viewport);
    const double width = textWidth(nodeText(node), look.size) * (look.bold ? 1.08 : 1.0);
    const double height = look.size * kCapHeight + 2.0 * kPadding;
    const PagePoint middle{(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0};
    const double beside = box.width() / 2.0 + width / 2.0 + kGap;
    const double above = box.height() / 2.0 + height / 2.0 + kGap;
    const double side = box.width() / 2.0 + width / 2.0 - 1.0;
    const PagePoint offsets[] = {{side, -above}, {side, above},  {-side, -above}, {-side, above},
                                 {beside, 0.0},  {-beside, 0.0}, {0.0, -above},   {0.0, above}};
    std::vector<Candidate> found;
    for (const double reach : {1.0, 1.6}) {
        for (const PagePoint& offset : offsets) {
            const PagePoint center{middle.x + offset.x * (reach > 1.0 ? 1.15 : 1.0),
                                   middle.y + offset.y * reach};
            found.push_back({{center, width, height, 0.0}, look});
        }
    }
    return found;
}

/// The direction of a label on the page, turned so that it reads from the left or from below.
double uprightAngle(const PlanPoint& direction) {
    double angle = std::atan2(-direction.y, direction.x);
    const double quarter = std::numbers::pi / 2.0;
    if (angle > quarter - 1e-9) {
        angle -= std::numbers::pi;
    } else if (angle < -quarter - 1e-9) {
        angle += std::numbers::pi;
    }
    return std::abs(angle) < 1e-9 ? 0.0 : angle;
}

std::vector<Candidate> besideRun(const SceneRun& run, const std::string& text,
                                 const Viewport& viewport) {
    TextLook look;
    look.size = style::kDiameterSize;
    look.colour = run.onPath ? style::kPath : style::kFaint;
    look.anchor = Anchor::middle;
    look.halo = true;
    const double angle = uprightAngle(run.labelDirection);
    look.angle = angle * 180.0 / std::numbers::pi;
    const double width = textWidth(text, look.size);
    const double height = look.size * kCapHeight + 2.0 * kPadding;
    const double away = arrowLength(run, viewport) / 2.0 + height / 2.0;
    const PagePoint place = viewport.toPage(run.label);
    std::vector<Candidate> found;
    for (const double side : {1.0, -1.0}) {
        const PagePoint center{place.x + side * away * std::sin(angle),
                               place.y - side * away * std::cos(angle)};
        found.push_back({{center, width, height, angle}, look});
    }
    return found;
}

int rankOf(const SceneNode& node) {
    if (node.root || node.pathEnd || node.shape == NodeShape::pickedEnd) {
        return 0;
    }
    return node.onPath ? 1 : node.shape == NodeShape::box ? 2 : 3;
}

void putNodes(Writer& writer, const Scene& scene, const Viewport& viewport) {
    for (int rank = 0; rank <= 3; ++rank) {
        for (const SceneNode& node : scene.nodes) {
            if (rankOf(node) == rank && !nodeText(node).empty()) {
                writer.put(nodeText(node), aroundNode(node, viewport));
            }
        }
    }
}

/// A label longer than its pipe would seem to belong to the next one.
void putDiameters(Writer& writer, const Scene& scene, const Viewport& viewport) {
    for (const bool path : {true, false}) {
        for (const SceneRun& run : scene.runs) {
            if (run.onPath != path || run.diameter <= 0) {
                continue;
            }
            const std::string text = fmt::format("DN{}", run.diameter);
            const double room = distance(run.from, run.to) * viewport.scale();
            if (textWidth(text, style::kDiameterSize) > room) {
                writer.drop();
            } else {
                writer.put(text, besideRun(run, text, viewport));
            }
        }
    }
}

} // namespace

Labels placeLabels(const Scene& scene, const Viewport& viewport) {
    Writer writer(scene, viewport);
    putNodes(writer, scene, viewport);
    putDiameters(writer, scene, viewport);
    return writer.take();
}

} // namespace pipenet
