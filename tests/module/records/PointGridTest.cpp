#include "records/PointGrid.h"
#include "module/records/GridTest.h"
#include "records/SettledPoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <type_traits>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::PlanBox;
using tkvlt::PointGrid;
using tkvlt::SettledPoints;

using Points = std::vector<AcGePoint3d>;

/// Item i is the i-th point.
template<class Index>
Index indexOf(double usualQuery, const Points& points) {
    if constexpr (std::is_same_v<Index, SettledPoints>) {
        return SettledPoints(usualQuery, points.size(),
                             [&](std::size_t item) -> const AcGePoint3d& { return points[item]; });
    } else {
        Index grid(usualQuery);
        for (std::size_t item = 0; item < points.size(); ++item) {
            grid.Add(static_cast<int>(item), points[item]);
        }
        return grid;
    }
}

PointGrid gridOf(const Points& points) {
    return indexOf<PointGrid>(1.0, points);
}

/// What both find alike, for the coordinates here are what a `float` holds too.
template<class Index>
class PointsInPlan : public ::testing::Test {};
using Indexes = ::testing::Types<PointGrid, SettledPoints>;
TYPED_TEST_SUITE(PointsInPlan, Indexes);

TYPED_TEST(PointsInPlan, BoundsOfTheBoxAreIncluded) {
    const auto grid = indexOf<TypeParam>(
        1.0, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {2, 1, 0}, {2, -1, 0}});
    EXPECT_EQ(found(grid, {1, 0, 2, 0}), (std::vector<int>{1, 2}));
    EXPECT_EQ(found(grid, {1, 0, 2, 1}), (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(found(grid, {2, 0, 2, 0}), (std::vector<int>{2}));
    EXPECT_EQ(found(grid, {1.5, -1, 2.5, -0.5}), (std::vector<int>{5}));
    EXPECT_EQ(found(grid, {4, 0, 9, 9}), (std::vector<int>{}));
}

TYPED_TEST(PointsInPlan, HeightTakesNoPart) {
    const auto grid = indexOf<TypeParam>(1.0, {{1, 2, -1e9}, {1, 2, 0}, {1, 2, 1e9}});
    EXPECT_EQ(found(grid, {1, 2, 1, 2}), (std::vector<int>{0, 1, 2}));
}

TYPED_TEST(PointsInPlan, WithoutPointsThereIsNothing) {
    EXPECT_TRUE(found(TypeParam(), kWholePlane).empty());
    EXPECT_TRUE(found(indexOf<TypeParam>(1.0, {}), {0, 0, 1, 1}).empty());
}

TYPED_TEST(PointsInPlan, WhatIsThereAlreadyStaysInTheList) {
    const auto grid = indexOf<TypeParam>(1.0, {{0, 0, 0}});
    tkvlt::Indices items;
    items.push_back(7);
    grid.Collect({-1, -1, 1, 1}, items);
    EXPECT_EQ(items, (std::vector<int>{7, 0}));
}

TYPED_TEST(PointsInPlan, ABoxTurnedInsideOutHoldsNothing) {
    const auto grid = indexOf<TypeParam>(1.0, {{0, 0, 0}, {5, 5, 0}, {100, 100, 0}});
    EXPECT_TRUE(found(grid, {6, -1, -1, 6}).empty());
    EXPECT_TRUE(found(grid, {-1, 200, 200, -1}).empty());
    EXPECT_TRUE(found(grid, {1000, -kBoundless, -1000, kBoundless}).empty());
}

// Points on, just below and just above every border that cells of a side of 4, 8 or 64 have: each
// box around one of them tells it from its neighbours.
TEST(PointGrid, PointsAtTheBordersOfCellsAreFound) {
    std::vector<double> coordinates;
    for (int number = -72; number <= 72; number += 4) {
        const double border = number;
        coordinates.insert(coordinates.end(),
                           {std::nextafter(border, -1e9), border, std::nextafter(border, 1e9)});
    }
    std::vector<AcGePoint3d> points;
    for (const double x : coordinates) {
        for (const double y : {-64.0, -8.0, 0.0, 8.0}) {
            points.emplace_back(x, y, 0.0);
        }
    }
    for (const double usualQuery : {0.125, 0.5, 1.0, 8.0}) {
        const auto grid = indexOf<PointGrid>(usualQuery, points);
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_EQ(found(grid, PlanBox::Of(points[i])), std::vector<int>{static_cast<int>(i)});
        }
        // From a border to the next and from just inside it: 4 to 8 has the three of 4 less the
        // one below, and of 8 the one below and that on it.
        EXPECT_EQ(found(grid, {4.0, 0.0, 8.0, 0.0}).size(), 4U);
        EXPECT_EQ(
            found(grid, {std::nextafter(4.0, 9.0), 0.0, std::nextafter(8.0, 0.0), 0.0}).size(), 2U);
        // Two of -8, three each of -4, 0 and 4, two of 8, in three rows.
        EXPECT_EQ(found(grid, {-8.0, -8.0, 8.0, 8.0}).size(), 39U);
    }
}

// A millimetre apart ten thousand kilometres from the origin. Columns and rows 9.5 to 12.5 are
// three of each.
TEST(PointGrid, NeighboursFarFromTheOriginAreToldApart) {
    std::vector<AcGePoint3d> points;
    for (int row = 0; row < 40; ++row) {
        for (int column = 0; column < 40; ++column) {
            points.emplace_back(1e7 + 1e-3 * column, -2e7 + 1e-3 * row, 0.0);
        }
    }
    for (const double usualQuery : {1e-4, 1e-3, 1.0, 1e6}) {
        const auto grid = indexOf<PointGrid>(usualQuery, points);
        const auto nine = found(grid, {1e7 + 9.5e-3, -2e7 + 9.5e-3, 1e7 + 12.5e-3, -2e7 + 12.5e-3});
        EXPECT_EQ(nine, (std::vector<int>{10 * 40 + 10, 10 * 40 + 11, 10 * 40 + 12, //
                                          11 * 40 + 10, 11 * 40 + 11, 11 * 40 + 12, //
                                          12 * 40 + 10, 12 * 40 + 11, 12 * 40 + 12}));
    }
}

TEST(PointGrid, OnePlaceMayHoldManyItems) {
    PointGrid grid = gridOf({{3, 4, 0}, {3, 4, 0}, {3, 4, 0}});
    grid.Add(9, {3, 4, 0});
    EXPECT_EQ(found(grid, {3, 4, 3, 4}), (std::vector<int>{0, 1, 2, 9}));
    grid.Remove(1, {3, 4, 0});
    EXPECT_EQ(found(grid, {3, 4, 3, 4}), (std::vector<int>{0, 2, 9}));
}

TEST(PointGrid, AnItemMayHaveTwoPointsOfWhichOneIsRemoved) {
    PointGrid grid(1.0);
    grid.Add(5, {0, 0, 0});
    grid.Add(5, {1000, 0, 0});
    grid.Remove(5, {0, 0, 0});
    EXPECT_TRUE(found(grid, {-1, -1, 1, 1}).empty());
    EXPECT_EQ(found(grid, {999, -1, 1001, 1}), std::vector<int>{5});
}

TEST(PointGrid, RemovingWhatIsNotThereChangesNothing) {
    PointGrid grid = gridOf({{0, 0, 0}});
    grid.Remove(1, {0, 0, 0});
    EXPECT_EQ(found(grid, {0, 0, 0, 0}), std::vector<int>{0});
    grid.Remove(0, {0, 0, 0});
    grid.Remove(0, {0, 0, 0});
    EXPECT_TRUE(found(grid, {-1, -1, 1, 1}).empty());
}

TEST(PointGrid, AnItemThatMovedIsFoundAtItsNewPlaceOnly) {
    PointGrid grid = gridOf({{0, 0, 0}, {50, 0, 0}});
    grid.Remove(0, {0, 0, 0});
    grid.Add(0, {49, 0, 0});
    EXPECT_TRUE(found(grid, {-1, -1, 1, 1}).empty());
    EXPECT_EQ(found(grid, {48, -1, 51, 1}), (std::vector<int>{0, 1}));
}

TEST(PointGrid, APointThatIsNoNumberIsFoundNowhereAndHidesNoOther) {
    PointGrid grid = gridOf({{kNoNumber, 0, 0}, {0, kNoNumber, 0}, {0, 0, kNoNumber}});
    grid.Add(3, {kNoNumber, kNoNumber, 0});
    EXPECT_EQ(found(grid, {0, 0, 0, 0}), std::vector<int>{2});
    EXPECT_EQ(found(grid, kWholePlane), std::vector<int>{2});
    grid.Remove(3, {kNoNumber, kNoNumber, 0});
    EXPECT_EQ(found(grid, {0, 0, 0, 0}), std::vector<int>{2});
}

TYPED_TEST(PointsInPlan, ABoxThatIsNoNumberHoldsNothing) {
    const auto grid = indexOf<TypeParam>(1.0, {{0, 0, 0}, {1, 1, 0}});
    EXPECT_TRUE(found(grid, {kNoNumber, -9, 9, 9}).empty());
    EXPECT_TRUE(found(grid, {-9, -9, 9, kNoNumber}).empty());
}

const Points kHugeCoordinates{{1e300, 0, 0},   {-1e300, 0, 0},     {1e18, 1e18, 0},
                              {2e18, 1e18, 0}, {kBoundless, 0, 0}, {0, 0, 0}};

TEST(PointGrid, HugeCoordinatesAreToldApart) {
    const auto grid = indexOf<PointGrid>(1e-3, kHugeCoordinates);
    EXPECT_EQ(found(grid, {1e299, -1, 1e301, 1}), std::vector<int>{0});
    EXPECT_EQ(found(grid, {-1e301, -1, -1e299, 1}), std::vector<int>{1});
    EXPECT_EQ(found(grid, {1e18, 1e18, 1e18, 1e18}), std::vector<int>{2});
    EXPECT_EQ(found(grid, {1.5e18, 0, 3e18, 2e18}), std::vector<int>{3});
    EXPECT_EQ(found(grid, {1e301, -1, kBoundless, 1}), std::vector<int>{4});
    EXPECT_EQ(found(grid, {-1, -1, 1, 1}), std::vector<int>{5});
    EXPECT_EQ(found(grid, kWholePlane), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TYPED_TEST(PointsInPlan, AnySideOfAUsualQueryGivesTheSame) {
    const std::vector<AcGePoint3d> points{{0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {-10, -10, 0}};
    for (const double usualQuery :
         {1e-300, 1e-9, 1.0, 1e9, 1e300, 0.0, -1.0, kBoundless, -kBoundless, kNoNumber}) {
        const auto grid = indexOf<TypeParam>(usualQuery, points);
        EXPECT_EQ(found(grid, {-10, -10, 0, 0}), (std::vector<int>{0, 3})) << usualQuery;
        EXPECT_EQ(found(grid, {-1, -1, 11, 11}), (std::vector<int>{0, 1, 2})) << usualQuery;
    }
}

TEST(SettledPoints, APointIsFoundWhereverItLies) {
    Points points = kHugeCoordinates;
    for (const double coordinate :
         {1e-300, 0.1, 1.0 / 3.0, 4.0, 64.0, 512345.678, 1e7, 1e38, 4e38}) {
        for (const double beside : {std::nextafter(coordinate, -kBoundless), coordinate,
                                    std::nextafter(coordinate, kBoundless)}) {
            points.emplace_back(beside, -beside, 0.0);
        }
    }
    for (const double usualQuery : {1e-3, 0.125, 8.0, 1e6}) {
        const auto settled = indexOf<SettledPoints>(usualQuery, points);
        for (int i = 0; i < static_cast<int>(points.size()); ++i) {
            const std::vector<int> there =
                found(settled, PlanBox::Of(points[static_cast<std::size_t>(i)]));
            EXPECT_TRUE(std::binary_search(there.begin(), there.end(), i)) << i;
        }
    }
}

TEST(SettledPoints, WhatLiesApartByMoreThanRoundingIsToldApart) {
    const auto settled = indexOf<SettledPoints>(1e-3, kHugeCoordinates);
    EXPECT_EQ(found(settled, {-1, -1, 1, 1}), std::vector<int>{5});
    EXPECT_EQ(found(settled, {1e18, 1e18, 1e18, 1e18}), std::vector<int>{2});
    EXPECT_EQ(found(settled, {1.5e18, 0, 3e18, 2e18}), std::vector<int>{3});
    EXPECT_EQ(found(settled, {-1e301, -1, -1e299, 1}), std::vector<int>{1});
    EXPECT_EQ(found(settled, kWholePlane), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST(SettledPoints, APointThatIsNoNumberIsFoundNowhereAndHidesNoOther) {
    const auto settled =
        indexOf<SettledPoints>(1.0, {{kNoNumber, 0, 0}, {0, kNoNumber, 0}, {0, 0, kNoNumber}});
    EXPECT_EQ(found(settled, {0, 0, 0, 0}), std::vector<int>{2});
    EXPECT_EQ(found(settled, kWholePlane), std::vector<int>{2});
}

TEST(SettledPoints, OnePlaceMayHoldManyItems) {
    const auto settled = indexOf<SettledPoints>(1.0, Points(100, AcGePoint3d(3, 4, 0)));
    EXPECT_EQ(found(settled, {3, 4, 3, 4}).size(), 100U);
}

/// By how much an answer of `SettledPoints` may miss a box: two parts in ten million of a
/// coordinate.
double roundingAt(const PlanBox& box) {
    return 2e-7 * std::max({std::abs(box.minX), std::abs(box.minY), std::abs(box.maxX),
                            std::abs(box.maxY)});
}

class PointsBesideAScan : public ::testing::TestWithParam<int> {
protected:
    std::mt19937 random{static_cast<std::mt19937::result_type>(GetParam())};
    const Spread spread = kSpreads[static_cast<std::size_t>(GetParam()) % std::size(kSpreads)];
    const double usualQuery = spread.width * std::pow(10.0, between(random, -4.0, 1.0));
    PlainItems<AcGePoint3d> plain;

    AcGePoint3d somePoint() { return spread.somePoint(random); }

    Points pointsKnownFromTheStart() {
        Points points;
        for (int item = 0; item < 400; ++item) {
            // Every fifth lies where another does.
            points.push_back(item % 5 == 4 ? points[upTo(random, points.size())] : somePoint());
            plain.add(item, points.back());
        }
        return points;
    }

    /// Calls `check` with boxes of all sizes, around points and elsewhere.
    template<class Check>
    void forSomeBoxes(Check check) {
        for (int i = 0; i < 60; ++i) {
            const bool atAPoint = !plain.all().empty() && i % 2 == 0;
            const AcGePoint3d middle =
                atAPoint ? plain.all()[upTo(random, plain.all().size())].second : somePoint();
            check(someBox(random, middle, spread.width));
            check(PlanBox::Of(middle));
        }
    }

    void expectSame(const PointGrid& grid) {
        forSomeBoxes([&](const PlanBox& box) { EXPECT_EQ(found(grid, box), plain.in(box)); });
    }
};
INSTANTIATE_TEST_SUITE_P(Seeds, PointsBesideAScan, ::testing::Range(0, 30));

TEST_P(PointsBesideAScan, PointsKnownFromTheStart) {
    expectSame(indexOf<PointGrid>(usualQuery, pointsKnownFromTheStart()));
}

TEST_P(PointsBesideAScan, SettledPointsLeaveNoneOutAndNameFewMore) {
    const auto settled = indexOf<SettledPoints>(usualQuery, pointsKnownFromTheStart());
    forSomeBoxes([&](const PlanBox& box) {
        const std::vector<int> items = found(settled, box);
        const std::vector<int> within = plain.in(box);
        const std::vector<int> about = plain.in(box.Widened(roundingAt(box)));
        EXPECT_TRUE(std::includes(items.begin(), items.end(), within.begin(), within.end()));
        EXPECT_TRUE(std::includes(about.begin(), about.end(), items.begin(), items.end()));
    });
}

TEST_P(PointsBesideAScan, PointsThatComeAndGo) {
    PointGrid grid(usualQuery);
    for (int item = 0; item < 400; ++item) {
        const AcGePoint3d point = somePoint();
        grid.Add(item, point);
        plain.add(item, point);
        if (item % 3 == 2) {
            const std::size_t place = upTo(random, plain.all().size());
            const auto [gone, at] = plain.all()[place];
            grid.Remove(gone, at);
            plain.remove(place);
        }
        if (item % 100 == 50) {
            expectSame(grid);
        }
    }
    expectSame(grid);
}

} // namespace
} // namespace module_tests
