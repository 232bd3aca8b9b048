#include "svg/Viewport.h"

#include "svg/Style.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pipenet {

namespace {

constexpr double kTitleHeight = 76.0;
constexpr double kSpacing = 85.0; ///< wanted between neighbours, pixels
constexpr double kLeastLongSide = 1180.0;
constexpr double kMostLongSide = 6400.0;
/// A page grows more slowly than the number of wells, or a large network would be all white space.
constexpr double kWellsOfLeastPage = 20.0;
constexpr double kGrowth = 0.35;
constexpr double kLeastWidth = 920.0; ///< what title and legend need
constexpr double kLeastHeight = 320.0;
constexpr double kInset = 48.0; ///< room for labels at the edges

void grow(PlanBox& box, const PlanPoint& point) {
    box.left = std::min(box.left, point.x);
    box.right = std::max(box.right, point.x);
    box.bottom = std::min(box.bottom, point.y);
    box.top = std::max(box.top, point.y);
}

PlanBox networkBox(const Scene& scene) {
    constexpr double huge = std::numeric_limits<double>::max();
    PlanBox box{huge, huge, -huge, -huge};
    for (const SceneNode& node : scene.nodes) {
        grow(box, {node.place.x - node.radius, node.place.y - node.radius});
        grow(box, {node.place.x + node.radius, node.place.y + node.radius});
        if (node.shape == NodeShape::box) {
            grow(box, {node.box.left, node.box.bottom});
            grow(box, {node.box.right, node.box.top});
        }
    }
    for (const SceneRun& run : scene.runs) {
        for (const PlanCurve& curve : run.curves) {
            for (const PlanPoint& point : flattened(curve)) {
                grow(box, point);
            }
        }
    }
    return box;
}

/// Distance between the nodes of a segment, the lower quartile.
double typicalSpacing(const Scene& scene) {
    std::vector<double> lengths;
    for (const SceneRun& run : scene.runs) {
        lengths.push_back(distance(run.from, run.to));
    }
    if (lengths.empty()) {
        return 1.0;
    }
    const auto quartile = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 4);
    std::nth_element(lengths.begin(), quartile, lengths.end());
    return std::max(*quartile, 1e-9);
}

} // namespace

Viewport::Viewport(const Scene& scene) {
    const double wells = std::max(static_cast<double>(scene.nodes.size()), kWellsOfLeastPage);
    const double most =
        std::min(kMostLongSide, kLeastLongSide * std::pow(wells / kWellsOfLeastPage, kGrowth));
    const PlanBox box = networkBox(scene);
    const double width = box.right - box.left;
    const double height = box.top - box.bottom;
    const double longSide = std::max({width, height, 1e-9});
    const double wanted = kSpacing / typicalSpacing(scene) * longSide;
    const double shown = std::clamp(wanted, kLeastLongSide, most);
    scale_ = shown / longSide;
    furniture_ = std::sqrt(shown / kLeastLongSide);
    const double areaWidth = std::max(width * scale_ + 2.0 * kInset, kLeastWidth * furniture_);
    const double areaHeight = std::max(height * scale_ + 2.0 * kInset, kLeastHeight);
    const double top = kTitleHeight * furniture_;
    area_ = {style::kMargin, top, style::kMargin + areaWidth, top + areaHeight};
    lowerLeft_ = {(box.left + box.right) / 2.0 - areaWidth / scale_ / 2.0,
                  (box.bottom + box.top) / 2.0 - areaHeight / scale_ / 2.0};
}

PagePoint Viewport::toPage(const PlanPoint& point) const {
    return {area_.left + (point.x - lowerLeft_.x) * scale_,
            area_.bottom - (point.y - lowerLeft_.y) * scale_};
}

} // namespace pipenet
