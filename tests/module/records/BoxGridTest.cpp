#include "records/BoxGrid.h"
#include "module/records/GridTest.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::BoxGrid;
using tkvlt::PlanBox;

PlanBox square(double x, double y, double side) {
    return {x, y, x + side, y + side};
}

TEST(BoxGrid, WithoutBoxesThereIsNothing) {
    EXPECT_TRUE(found(BoxGrid(), kWholePlane).empty());
}

TEST(BoxGrid, BoxesThatOnlyTouchOverlap) {
    BoxGrid grid(1.0);
    grid.Add(0, {0, 0, 10, 10});
    grid.Add(1, {10.5, 0, 20, 10});
    EXPECT_EQ(found(grid, {10, 10, 10.25, 11}), std::vector<int>{0});
    EXPECT_EQ(found(grid, {10, 0, 10.5, 0}), (std::vector<int>{0, 1}));
    EXPECT_EQ(found(grid, {-1, -1, 0, 0}), std::vector<int>{0});
    EXPECT_EQ(found(grid, {20, 10, 21, 11}), std::vector<int>{1});
    EXPECT_TRUE(found(grid, {10.125, 0, 10.25, 10}).empty());
    EXPECT_TRUE(found(grid, {0, 10.125, 20, 11}).empty());
    EXPECT_TRUE(found(grid, {0, -1, 20, -0.125}).empty());
}

TEST(BoxGrid, WhatIsThereAlreadyStaysInTheList) {
    BoxGrid grid(1.0);
    grid.Add(0, {0, 0, 1, 1});
    tkvlt::Indices items;
    items.push_back(7);
    grid.Collect({0, 0, 1, 1}, items);
    EXPECT_EQ(items, (std::vector<int>{7, 0}));
}

/// The four corners of a box, each alone.
std::vector<PlanBox> cornersOf(const PlanBox& box) {
    return {{box.minX, box.minY, box.minX, box.minY},
            {box.maxX, box.minY, box.maxX, box.minY},
            {box.minX, box.maxY, box.minX, box.maxY},
            {box.maxX, box.maxY, box.maxX, box.maxY}};
}

/// Places to the four sides of a box, by `gap`.
std::vector<PlanBox> placesBeside(const PlanBox& box, double gap) {
    return {{box.minX - gap, box.minY, box.minX - gap, box.maxY},
            {box.maxX + gap, box.minY, box.maxX + gap, box.maxY},
            {box.minX, box.minY - gap, box.maxX, box.minY - gap},
            {box.minX, box.maxY + gap, box.maxX, box.maxY + gap}};
}

void expectFoundWhereItLies(const PlanBox& box) {
    BoxGrid grid(0.5);
    grid.Add(3, box);
    for (const PlanBox& corner : cornersOf(box)) {
        EXPECT_EQ(found(grid, corner), std::vector<int>{3}) << box.maxX << ' ' << box.maxY;
    }
    for (const PlanBox& place : placesBeside(box, 0.03125)) {
        EXPECT_TRUE(found(grid, place).empty()) << box.maxX << ' ' << box.maxY;
    }
}

// From a point to thousands of cells, at each power of two of the finest cell and just beside it;
// the corners lie on a border of cells, in the middle of one and at its end.
TEST(BoxGrid, ABoxOfAnySizeIsFoundAtItsCornersAndNotBesideThem) {
    std::vector<double> sides{0.0, 0.0625};
    for (double power = 0.25; power < 5000.0; power *= 2.0) {
        sides.insert(sides.end(), {power - 0.015625, power, power + 0.015625});
    }
    for (const double side : sides) {
        for (const double corner : {0.0, 0.234375, 0.484375, -0.015625, -4096.0}) {
            expectFoundWhereItLies(square(corner, corner, side));
            expectFoundWhereItLies({corner, -corner, corner + side, -corner});        // level
            expectFoundWhereItLies({-corner, corner, -corner, corner + side});        // upright
            expectFoundWhereItLies({corner, corner, corner + side, corner + 0.0625}); // narrow
        }
    }
}

TEST(BoxGrid, BoxesOfManySizesAtOnePlaceAreToldApart) {
    BoxGrid grid(1.0);
    for (int i = 0; i < 40; ++i) {
        grid.Add(i, square(3.0, 4.0, std::ldexp(1.0, i - 5)));
    }
    EXPECT_EQ(found(grid, {3, 4, 3, 4}).size(), 40U);
    // From 2^33 on: those with a side of 2^34.
    const double far = std::ldexp(1.0, 33);
    EXPECT_EQ(found(grid, {far + 4, 5, far + 4, 5}), std::vector<int>{39});
    EXPECT_EQ(found(grid, {far + 3, far + 4, far + 4, far + 5}), (std::vector<int>{38, 39}));
}

TEST(BoxGrid, ABoundlessBoxIsFoundWhereverItReaches) {
    BoxGrid grid(10.0);
    grid.Add(0, kWholePlane);
    grid.Add(1, {5, 5, kBoundless, 6});
    grid.Add(2, {-kBoundless, 5, 5, 6});
    grid.Add(3, {-1e308, -1e308, 1e308, 1e308}); // wider than a number can tell
    grid.Add(4, {0, 0, 1, 1});
    EXPECT_EQ(found(grid, {0, 0, 0, 0}), (std::vector<int>{0, 3, 4}));
    EXPECT_EQ(found(grid, {5, 5, 5, 5}), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(found(grid, {1e307, 6, 1e307, 7}), (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(found(grid, {-1e307, 5.5, -1e307, 5.5}), (std::vector<int>{0, 2, 3}));
    EXPECT_EQ(found(grid, {1.5e308, 0, 1.5e308, 0}), std::vector<int>{0});
    grid.Remove(0, kWholePlane);
    grid.Remove(2, {-kBoundless, 5, 5, 6});
    EXPECT_EQ(found(grid, kWholePlane), (std::vector<int>{1, 3, 4}));
}

TEST(BoxGrid, ABoundlessQueryFindsAll) {
    BoxGrid grid(1.0);
    std::vector<int> all;
    for (int i = 0; i < 30; ++i) {
        grid.Add(i, square(1e5 * i, -1e6 * i, std::ldexp(1.0, i)));
        all.push_back(i);
    }
    EXPECT_EQ(found(grid, kWholePlane), all);
}

TEST(BoxGrid, ABoxThatIsNoNumberIsFoundNowhereAndHidesNoOther) {
    BoxGrid grid(1.0);
    grid.Add(0, {kNoNumber, 0, 1, 1});
    grid.Add(1, {0, kNoNumber, 1, kNoNumber});
    grid.Add(2, {0, 0, 1, 1});
    EXPECT_EQ(found(grid, {0, 0, 1, 1}), std::vector<int>{2});
    EXPECT_EQ(found(grid, kWholePlane), std::vector<int>{2});
    EXPECT_TRUE(found(grid, {0, 0, kNoNumber, 1}).empty());
}

TEST(BoxGrid, OnlyTheItemWithThisBoxIsRemoved) {
    const PlanBox box{1, 2, 3, 5};
    BoxGrid grid(1.0);
    grid.Add(0, box);
    grid.Add(1, box);
    grid.Remove(2, box); // no such item
    for (const PlanBox& other :
         {PlanBox{1.5, 2, 3, 5}, PlanBox{1, 2.5, 3, 5}, PlanBox{1, 2, 3.5, 5},
          PlanBox{1, 2, 3, 4.5}, PlanBox{1, 2, 300, 5}}) {
        grid.Remove(0, other);
    }
    EXPECT_EQ(found(grid, box), (std::vector<int>{0, 1}));
    grid.Remove(0, box);
    EXPECT_EQ(found(grid, box), std::vector<int>{1});
    grid.Remove(0, box);
    EXPECT_EQ(found(grid, box), std::vector<int>{1});
}

TEST(BoxGrid, AnItemThatWasCutIsFoundByItsNewBoxOnly) {
    BoxGrid grid(50.0);
    grid.Add(0, {0, 0, 1000, 0});
    grid.Remove(0, {0, 0, 1000, 0});
    grid.Add(0, {0, 0, 400, 0});
    EXPECT_EQ(found(grid, {400, -1, 401, 1}), std::vector<int>{0});
    EXPECT_TRUE(found(grid, {400.5, -1, 1000, 1}).empty());
}

// The table of a level doubles at 64 boxes, at 128 and so on; those removed before stay away.
TEST(BoxGrid, ManyBoxesOfOneSizeAreFoundEachAtItsPlace) {
    BoxGrid grid(8.0);
    for (int i = 0; i < 1000; ++i) {
        grid.Add(i, square(5.0 * (i % 25), 5.0 * (i / 25), 4.0));
        if (i % 3 == 0) {
            grid.Remove(i, square(5.0 * (i % 25), 5.0 * (i / 25), 4.0));
        }
    }
    for (int i = 0; i < 1000; ++i) {
        const double x = 5.0 * (i % 25) + 2.0;
        const double y = 5.0 * (i / 25) + 2.0;
        EXPECT_EQ(found(grid, {x, y, x, y}), i % 3 == 0 ? std::vector<int>() : std::vector<int>{i});
    }
    EXPECT_EQ(found(grid, kWholePlane).size(), 666U); // 334 of 0 to 999 can be divided by 3
}

TEST(BoxGrid, AnySideOfTheFinestCellGivesTheSame) {
    const std::vector<PlanBox> boxes{
        {0, 0, 0, 0}, {1, 1, 9, 2}, {-10, -10, 10, 10}, {0, 300, 1000, 301}, {7, -2000, 7, 2000}};
    for (const double finest :
         {1e-300, 1e-9, 1.0, 1e9, 1e300, 0.0, -1.0, -1e9, kBoundless, -kBoundless, kNoNumber}) {
        BoxGrid grid(finest);
        for (int i = 0; i < 5; ++i) {
            grid.Add(i, boxes[static_cast<std::size_t>(i)]);
        }
        EXPECT_EQ(found(grid, {0, 0, 0, 0}), (std::vector<int>{0, 2})) << finest;
        EXPECT_EQ(found(grid, {9, 2, 12, 12}), (std::vector<int>{1, 2})) << finest;
        EXPECT_EQ(found(grid, {7, 300.5, 7, 400}), (std::vector<int>{3, 4})) << finest;
        EXPECT_EQ(found(grid, {1000, 301, 1000, 301}), std::vector<int>{3}) << finest;
        EXPECT_TRUE(found(grid, {11, 11, 999, 299}).empty()) << finest;
        grid.Remove(2, boxes[2]);
        EXPECT_EQ(found(grid, {0, 0, 0, 0}), std::vector<int>{0}) << finest;
    }
}

class BoxGridBesideAScan : public ::testing::TestWithParam<int> {
protected:
    std::mt19937 random{static_cast<std::mt19937::result_type>(GetParam())};
    const Spread spread = kSpreads[static_cast<std::size_t>(GetParam()) % std::size(kSpreads)];
    BoxGrid grid{spread.width * std::pow(10.0, between(random, -4.0, 1.0))};
    PlainItems<PlanBox> plain;

    PlanBox someBoxOfTheSpread() { return someBox(random, spread.somePoint(random), spread.width); }

    void add(int item, const PlanBox& box) {
        grid.Add(item, box);
        plain.add(item, box);
    }

    void removeOne() {
        const std::size_t place = upTo(random, plain.all().size());
        const auto [gone, box] = plain.all()[place];
        grid.Remove(gone, box);
        plain.remove(place);
    }

    void expectSame() {
        for (int i = 0; i < 40; ++i) {
            const PlanBox query = someBoxOfTheSpread();
            EXPECT_EQ(found(grid, query), plain.in(query));
            const PlanBox& box = plain.all()[upTo(random, plain.all().size())].second;
            for (const PlanBox& corner : cornersOf(box)) {
                EXPECT_EQ(found(grid, corner), plain.in(corner));
            }
            for (const PlanBox& place : placesBeside(box, (box.maxX - box.minX) * 0.5)) {
                EXPECT_EQ(found(grid, place), plain.in(place));
            }
        }
    }
};
INSTANTIATE_TEST_SUITE_P(Seeds, BoxGridBesideAScan, ::testing::Range(0, 30));

TEST_P(BoxGridBesideAScan, BoxesThatComeAndGo) {
    for (int item = 0; item < 400; ++item) {
        add(item, someBoxOfTheSpread());
        if (item % 3 == 2) {
            removeOne();
        }
        if (item % 100 == 50) {
            expectSame();
        }
    }
    expectSame();
}

} // namespace
} // namespace module_tests
