#include "records/BoxTree.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <vector>

#include "records/ToFloat.h"

namespace tkvlt {

namespace {

/// The middle of a side; 0 for a boundless one, which has none.
double Middle(double low, double high) {
    const double middle = low * 0.5 + high * 0.5;
    return std::isfinite(middle) ? middle : 0.0;
}

// Functions by name would be called for each box through their addresses.
constexpr auto kCentreX = [](const PlanBox& box) { return Middle(box.minX, box.maxX); };
constexpr auto kCentreY = [](const PlanBox& box) { return Middle(box.minY, box.maxY); };

/// Numbers with what they are sorted by in the upper half and an item in the lower.
using Keys = LargeVector<std::uint64_t>;

constexpr int kHalf = 32;

std::size_t ItemOf(std::uint64_t key) {
    return static_cast<std::uint32_t>(key);
}

/// Numbers in the order of the floats.
std::uint32_t Ordered(float number) {
    constexpr std::uint32_t sign = 1U << 31;
    const auto bits = std::bit_cast<std::uint32_t>(number);
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

/// A coordinate that the drawing lies around: a stray box or two at either end of the list do not
/// move it away.
template<class Coordinate>
double OriginOf(Coordinate coordinate, const std::vector<PlanBox>& boxes) {
    if (boxes.empty()) {
        return 0.0;
    }
    const double first = coordinate(boxes.front());
    const double middle = coordinate(boxes[boxes.size() / 2]);
    const double last = coordinate(boxes.back());
    return std::max(std::min(first, last), std::min(middle, std::max(first, last)));
}

/// The items in their order, each with a coordinate of its box. Floats tell neighbours apart
/// wherever most boxes lie, however far from them a stray one does.
template<class Coordinate>
Keys KeysBy(Coordinate coordinate, const std::vector<PlanBox>& boxes) {
    const double origin = OriginOf(coordinate, boxes);
    Keys keys;
    keys.reserve(boxes.size());
    for (const PlanBox& box : boxes) {
        const std::uint64_t place = Ordered(ToFloat(coordinate(box) - origin));
        keys.push_back(place << kHalf | keys.size());
    }
    return keys;
}

/// Sorts by the upper half; what stands in item order stays so where that is equal. Linear but for
/// a few: digit by digit, the lowest first.
void SortByUpperHalf(Keys& keys) {
    constexpr int digitBits = 11;
    constexpr std::size_t digits = 1U << digitBits;
    if (keys.size() < digits) {
        std::sort(keys.begin(), keys.end());
        return;
    }
    Keys sorted(keys.size());
    for (int shift = kHalf; shift < 2 * kHalf; shift += digitBits) {
        std::array<std::uint32_t, digits> next{};
        const auto digitOf = [shift](std::uint64_t key) { return (key >> shift) & (digits - 1); };
        for (const std::uint64_t key : keys) {
            ++next[digitOf(key)];
        }
        std::exclusive_scan(next.begin(), next.end(), next.begin(), 0U);
        for (const std::uint64_t key : keys) {
            sorted[next[digitOf(key)]++] = key;
        }
        keys.swap(sorted);
    }
}

template<class Coordinate>
Keys SortedBy(Coordinate coordinate, const std::vector<PlanBox>& boxes) {
    Keys keys = KeysBy(coordinate, boxes);
    SortByUpperHalf(keys);
    return keys;
}

/// The boxes' items strip by strip and upwards in each.
LargeVector<int> InStrips(const std::vector<PlanBox>& boxes, std::size_t leafSize) {
    const std::size_t leaves = (boxes.size() + leafSize - 1) / leafSize;
    const auto strips = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(leaves))));
    const std::size_t stripSize = strips == 0 ? 1 : (leaves + strips - 1) / strips * leafSize;
    std::vector<std::size_t> next; // of each strip, where its next item comes to stand
    LargeVector<std::uint32_t> stripOf(boxes.size());
    std::size_t rank = 0;
    for (const std::uint64_t key : SortedBy(kCentreX, boxes)) {
        if (rank % stripSize == 0) {
            next.push_back(rank);
        }
        stripOf[ItemOf(key)] = static_cast<std::uint32_t>(next.size() - 1);
        ++rank;
    }
    LargeVector<int> items(boxes.size());
    for (const std::uint64_t key : SortedBy(kCentreY, boxes)) {
        items[next[stripOf[ItemOf(key)]]++] = static_cast<int>(ItemOf(key));
    }
    return items;
}

} // namespace

BoxTree::Node::Node() {
    constexpr float nowhere = std::numeric_limits<float>::quiet_NaN();
    for (std::array<float, kFanOut>* bound : {&minX, &minY, &maxX, &maxY}) {
        bound->fill(nowhere);
    }
}

void BoxTree::Node::Set(std::size_t at, const PlanBox& box) {
    minX[at] = ToFloat(box.minX);
    minY[at] = ToFloat(box.minY);
    maxX[at] = ToFloat(box.maxX);
    maxY[at] = ToFloat(box.maxY);
}

BoxTree::BoxTree(const std::vector<PlanBox>& boxes) : items_(InStrips(boxes, kFanOut)) {
    std::vector<PlanBox> level;
    level.reserve(boxes.size());
    for (const int item : items_) {
        level.push_back(boxes[static_cast<std::size_t>(item)]);
    }
    do {
        level = AddLevel(level);
    } while (level.size() > 1);
}

std::vector<PlanBox> BoxTree::AddLevel(const std::vector<PlanBox>& boxes) {
    const std::size_t count = (boxes.size() + kFanOut - 1) / kFanOut;
    LargeVector<Node> nodes(count);
    std::vector<PlanBox> parents;
    parents.reserve(count);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (i % kFanOut == 0) {
            parents.push_back(boxes[i]);
        } else {
            parents.back().Include(boxes[i]);
        }
        nodes[i / kFanOut].Set(i % kFanOut, boxes[i]);
    }
    levels_.push_back(std::move(nodes));
    return parents;
}

void BoxTree::Collect(const PlanBox& box, Indices& items) const {
    if (items_.empty()) {
        return;
    }
    // Rounding keeps order, so that boxes that overlap do so when they are rounded.
    const float minX = ToFloat(box.minX);
    const float minY = ToFloat(box.minY);
    const float maxX = ToFloat(box.maxX);
    const float maxY = ToFloat(box.maxY);
    struct Visit {
        std::size_t level;
        std::size_t node;
    };
    // Of each level at most the children of one node stand open, and there are fewer levels than
    // this for any number that an int can count.
    constexpr std::size_t mostLevels = 9;
    std::array<Visit, mostLevels * kFanOut> open;
    std::size_t openCount = 0;
    open[openCount++] = {levels_.size() - 1, 0};
    while (openCount > 0) {
        const Visit visit = open[--openCount];
        const Node& node = levels_[visit.level][visit.node];
        std::array<unsigned char, kFanOut> overlaps;
        for (std::size_t i = 0; i < kFanOut; ++i) {
            // Without branches all are compared by the same few instructions.
            const int inX =
                static_cast<int>(node.minX[i] <= maxX) & static_cast<int>(minX <= node.maxX[i]);
            const int inY =
                static_cast<int>(node.minY[i] <= maxY) & static_cast<int>(minY <= node.maxY[i]);
            overlaps[i] = static_cast<unsigned char>(inX & inY);
        }
        for (std::size_t i = 0; i < kFanOut; ++i) {
            if (overlaps[i] == 0) {
                continue;
            }
            const std::size_t child = visit.node * kFanOut + i;
            if (visit.level == 0) {
                items.push_back(items_[child]);
            } else {
                FetchAhead(levels_[visit.level - 1][child]);
                open[openCount++] = {visit.level - 1, child};
            }
        }
    }
}

} // namespace tkvlt
