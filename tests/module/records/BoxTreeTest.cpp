#include "records/BoxTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::BoxTree;
using tkvlt::PlanBox;

std::vector<int> found(const BoxTree& tree, const PlanBox& box) {
    std::vector<int> items;
    tree.Collect(box, items);
    std::sort(items.begin(), items.end());
    return items;
}

TEST(BoxTree, WithoutBoxesNothingIsFound) {
    const PlanBox everywhere{-1e9, -1e9, 1e9, 1e9};
    EXPECT_TRUE(found(BoxTree(), everywhere).empty());
    EXPECT_TRUE(found(BoxTree(std::vector<PlanBox>()), everywhere).empty());
}

TEST(BoxTree, BoxesThatOnlyTouchOverlap) {
    const BoxTree tree({{0, 0, 10, 10}, {10.5, 0, 20, 10}});
    EXPECT_EQ(found(tree, {10, 10, 10.25, 11}), (std::vector<int>{0}));
    EXPECT_EQ(found(tree, {10, 0, 10.5, 0}), (std::vector<int>{0, 1}));
    EXPECT_TRUE(found(tree, {10.125, 0, 10.25, 10}).empty());
}

TEST(BoxTree, FindsWhatAPlainScanFindsOnEveryLevel) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-500.0, 500.0);
    std::uniform_real_distribution<double> size(0.0, 20.0);
    for (const std::size_t count : {1U, 15U, 16U, 17U, 256U, 257U, 5000U}) {
        std::vector<PlanBox> boxes(count);
        for (PlanBox& box : boxes) {
            box = {place(random), place(random), 0.0, 0.0};
            box.maxX = box.minX + size(random);
            box.maxY = box.minY + size(random);
        }
        const BoxTree tree(boxes);
        for (int query = 0; query < 50; ++query) {
            const double x = place(random);
            const double y = place(random);
            const PlanBox wanted{x, y, x + 5.0 * size(random), y + 5.0 * size(random)};
            std::vector<int> expected;
            for (std::size_t i = 0; i < count; ++i) {
                if (boxes[i].Overlaps(wanted)) {
                    expected.push_back(static_cast<int>(i));
                }
            }
            EXPECT_EQ(found(tree, wanted), expected) << count << " boxes";
        }
    }
}

} // namespace
} // namespace module_tests
