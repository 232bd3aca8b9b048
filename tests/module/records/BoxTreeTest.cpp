#include "records/BoxTree.h"
#include "module/records/GridTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::BoxTree;
using tkvlt::PlanBox;

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

// Nothing tells these apart by where their middles lie.
TEST(BoxTree, BoxesAroundOneMiddleAreToldApart) {
    for (const int count : {40, 4000}) {
        std::vector<PlanBox> boxes;
        for (int i = 0; i < count; ++i) {
            boxes.push_back({-1.0 * i, -2.0 * i, 1.0 * i, 2.0 * i});
        }
        const BoxTree tree(boxes);
        const std::vector<int> outermost{count - 2, count - 1};
        EXPECT_EQ(found(tree, {count - 2.5, 0, 9999, 0}), outermost);
        EXPECT_EQ(found(tree, {0, -9999, 0, 4.5 - 2.0 * count}), outermost);
        EXPECT_EQ(found(tree, {0, 0, 0, 0}).size(), static_cast<std::size_t>(count));
    }
}

// A boundless box has no middle, and hides none of the others.
TEST(BoxTree, BoundlessBoxesAreFoundBesideOthers) {
    std::vector<PlanBox> boxes{kWholePlane, {5.0, -kBoundless, kBoundless, 5.0}};
    for (int i = 2; i < 40; ++i) {
        boxes.push_back({1.0 * i, 0, 1.0 * i, 10});
    }
    const BoxTree tree(boxes);
    EXPECT_EQ(found(tree, {7, 1, 8, 2}), (std::vector<int>{0, 1, 7, 8}));
    EXPECT_EQ(found(tree, {7, 6, 8, 6}), (std::vector<int>{0, 7, 8}));
    EXPECT_EQ(found(tree, {1e300, -1e300, 1e300, -1e300}), (std::vector<int>{0, 1}));
}

TEST(BoxTree, FindsWhatAPlainScanFindsOnEveryLevel) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-500.0, 500.0);
    std::uniform_real_distribution<double> size(0.0, 20.0);
    for (const std::size_t count : {1U, 15U, 16U, 17U, 256U, 257U, 2047U, 2048U, 5000U}) {
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
            const std::vector<int> items = found(tree, wanted);
            EXPECT_TRUE(std::includes(items.begin(), items.end(), expected.begin(), expected.end()))
                << count << " boxes";
            for (const int item : items) {
                EXPECT_TRUE(boxes[static_cast<std::size_t>(item)].Overlaps(wanted.Widened(1e-4)))
                    << count << " boxes";
            }
        }
        std::vector<int> all(count);
        std::iota(all.begin(), all.end(), 0);
        EXPECT_EQ(found(tree, kWholePlane), all);
    }
}

TEST(BoxTree, BoxesThatTouchAreFoundWhereNeighbouringNumbersRoundTheSameWay) {
    for (const double far : {1e7, -3e8, 4e9, 1e300}) {
        const double low = std::nextafter(far, -kBoundless);
        const double high = std::nextafter(far, kBoundless);
        const BoxTree tree({{low, low, far, far}, {far, far, high, high}, {0, 0, 1, 1}});
        EXPECT_EQ(found(tree, {far, far, far, far}), (std::vector<int>{0, 1})) << far;
    }
}

} // namespace
} // namespace module_tests
