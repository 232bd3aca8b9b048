#include "records/BoxTree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>

namespace tkvlt {

namespace {

constexpr std::size_t kFanOut = 16;

/// The middle of a side; 0 for a boundless one, which has none.
double Middle(double low, double high) {
    const double middle = low * 0.5 + high * 0.5;
    return std::isfinite(middle) ? middle : 0.0;
}

double CentreX(const PlanBox& box) {
    return Middle(box.minX, box.maxX);
}
double CentreY(const PlanBox& box) {
    return Middle(box.minY, box.maxY);
}

/// Sorts items[begin, end) by a coordinate of their boxes; ties stand in item order. The places are
/// rounded to one in four thousand million, which is all the same to a packing.
template<class Coordinate>
void SortBy(LargeVector<int>& items, std::size_t begin, std::size_t end,
            const std::vector<PlanBox>& boxes, Coordinate coordinate) {
    const auto centre = [&](std::size_t i) {
        return coordinate(boxes[static_cast<std::size_t>(items[i])]);
    };
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (std::size_t i = begin; i < end; ++i) {
        low = std::min(low, centre(i));
        high = std::max(high, centre(i));
    }
    constexpr double places = 4294967295.0;
    const double scale = places / (high - low);
    const bool isUsable = high > low && std::isfinite(high - low) && std::isfinite(scale);
    LargeVector<std::uint64_t> keys;
    keys.reserve(end - begin);
    for (std::size_t i = begin; i < end; ++i) {
        const double place = isUsable ? std::clamp((centre(i) - low) * scale, 0.0, places) : 0.0;
        keys.push_back(static_cast<std::uint64_t>(place) << 32 |
                       static_cast<std::uint32_t>(items[i]));
    }
    std::sort(keys.begin(), keys.end());
    for (std::size_t i = begin; i < end; ++i) {
        items[i] = static_cast<int>(static_cast<std::uint32_t>(keys[i - begin]));
    }
}

} // namespace

BoxTree::BoxTree(const std::vector<PlanBox>& boxes) : items_(boxes.size()) {
    std::iota(items_.begin(), items_.end(), 0);
    const std::size_t leaves = (boxes.size() + kFanOut - 1) / kFanOut;
    const auto strips = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(leaves))));
    const std::size_t stripSize = strips == 0 ? 0 : (leaves + strips - 1) / strips * kFanOut;
    SortBy(items_, 0, items_.size(), boxes, CentreX);
    for (std::size_t begin = 0; begin < items_.size(); begin += stripSize) {
        SortBy(items_, begin, std::min(begin + stripSize, items_.size()), boxes, CentreY);
    }
    LargeVector<PlanBox> leafBoxes;
    leafBoxes.reserve(boxes.size());
    for (const int item : items_) {
        leafBoxes.push_back(boxes[static_cast<std::size_t>(item)]);
    }
    levels_.push_back(std::move(leafBoxes));
    while (levels_.back().size() > kFanOut) {
        AddLevel(levels_.back());
    }
}

void BoxTree::AddLevel(const LargeVector<PlanBox>& children) {
    LargeVector<PlanBox> parents;
    parents.reserve((children.size() + kFanOut - 1) / kFanOut);
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (i % kFanOut == 0) {
            parents.push_back(children[i]);
        } else {
            parents.back().Include(children[i]);
        }
    }
    levels_.push_back(std::move(parents));
}

void BoxTree::Collect(const PlanBox& box, Indices& items) const {
    if (levels_.empty()) {
        return;
    }
    struct Visit {
        std::size_t level;
        std::size_t begin;
    };
    // Of each level at most the children of one node stand open, and there are fewer levels than
    // this for any number that an int can count.
    constexpr std::size_t mostLevels = 9;
    std::array<Visit, mostLevels * kFanOut> open;
    std::size_t openCount = 0;
    open[openCount++] = {levels_.size() - 1, 0};
    while (openCount > 0) {
        const Visit visit = open[--openCount];
        const LargeVector<PlanBox>& level = levels_[visit.level];
        const std::size_t end = std::min(visit.begin + kFanOut, level.size());
        for (std::size_t i = visit.begin; i < end; ++i) {
            if (!level[i].Overlaps(box)) {
                continue;
            }
            if (visit.level == 0) {
                items.push_back(items_[i]);
            } else {
                open[openCount++] = {visit.level - 1, i * kFanOut};
            }
        }
    }
}

} // namespace tkvlt
