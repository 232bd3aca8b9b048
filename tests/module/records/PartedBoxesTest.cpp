#include "records/PartedBoxes.h"
#include "module/records/GridTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::PartedBoxes;
using tkvlt::PlanBox;

constexpr double kReach = 0.125;

/// Boxes and their parts, with a list of them all beside.
class Parted {
public:
    explicit Parted(const std::vector<PlanBox>& wholes, double reach = kReach)
        : reach_(reach), index_(wholes, reach, 4.0) {
        for (const PlanBox& whole : wholes) {
            wholeOf_.push_back(static_cast<int>(items_.size()));
            items_.push_back({whole, true});
        }
    }

    const PlanBox& box(int item) const { return items_[static_cast<std::size_t>(item)].box; }
    bool has(int item) const { return items_[static_cast<std::size_t>(item)].isThere; }
    int size() const { return static_cast<int>(items_.size()); }

    int cut(int item, const PlanBox& box) {
        const int whole = wholeOf_[static_cast<std::size_t>(item)];
        EXPECT_EQ(index_.WholeOf(item), whole);
        index_.AddPart(whole, this->box(whole), box);
        wholeOf_.push_back(whole);
        items_.push_back({box, true});
        return size() - 1;
    }

    void remove(int part) {
        index_.RemovePart(part, box(part));
        items_[static_cast<std::size_t>(part)].isThere = false;
    }

    /// What the index finds behind an item.
    std::vector<int> later(int item) const {
        index_.FetchAheadOf(item, [](int) {}); // may not read beside what there is
        tkvlt::Indices found;
        index_.CollectLater(item, box(item), found);
        std::vector<int> items(found.begin(), found.end());
        std::sort(items.begin(), items.end());
        items.erase(std::unique(items.begin(), items.end()), items.end());
        return items;
    }

    /// What lies behind an item no farther than `reach` from it.
    std::vector<int> near(int item, double reach) const {
        const PlanBox& own = box(item);
        const PlanBox reached{own.minX - reach, own.minY - reach, own.maxX + reach,
                              own.maxY + reach};
        std::vector<int> items;
        for (int other = item + 1; other < size(); ++other) {
            if (has(other) && meets(reached, box(other))) {
                items.push_back(other);
            }
        }
        return items;
    }

    /// Whatever comes near is found, and nothing that has been taken away or lies far off.
    void expectAnswers() const {
        for (int item = 0; item < size(); ++item) {
            if (!has(item)) {
                continue;
            }
            const std::vector<int> answer = later(item);
            const std::vector<int> least = near(item, reach_);
            EXPECT_TRUE(std::includes(answer.begin(), answer.end(), least.begin(), least.end()))
                << item;
            // As far as floats tell places of this size apart.
            const PlanBox& own = box(item);
            const double rounding = 1e-6 * std::max({std::fabs(own.minX), std::fabs(own.minY),
                                                     std::fabs(own.maxX), std::fabs(own.maxY)});
            const std::vector<int> most = near(item, 10.0 * reach_ + rounding);
            EXPECT_TRUE(std::includes(most.begin(), most.end(), answer.begin(), answer.end()))
                << item;
        }
    }

private:
    struct Item {
        PlanBox box;
        bool isThere;
    };

    double reach_;
    PartedBoxes index_;
    std::vector<Item> items_;
    std::vector<int> wholeOf_;
};

TEST(PartedBoxes, WholesThatComeNearAreFoundFromTheFirstOfThem) {
    const Parted boxes({{0, 0, 10, 1}, {10.125, 0, 20, 1}, {10.125, 2.5, 20, 3}, {5, 1, 5, 9}});
    EXPECT_EQ(boxes.later(0), (std::vector<int>{1, 3}));
    EXPECT_TRUE(boxes.later(1).empty());
    EXPECT_TRUE(boxes.later(2).empty());
    EXPECT_TRUE(boxes.later(3).empty());
}

/// 0 lies along 1, the parts 2 and 3 of which are its left and its right half.
TEST(PartedBoxes, APartIsFoundWhereItLiesAndNotWhereItsWholeDoes) {
    Parted boxes({{0, 0, 4, 0}, {0, 0, 10, 0}});
    boxes.cut(1, {0, 0, 4.5, 0});
    boxes.cut(1, {4.5, 0, 10, 0});
    EXPECT_EQ(boxes.later(0), (std::vector<int>{1, 2}));
    EXPECT_EQ(boxes.later(1), (std::vector<int>{2, 3}));
    EXPECT_EQ(boxes.later(2), std::vector<int>{3});
}

TEST(PartedBoxes, WhatAPartIsCutIntoIsPartOfTheSameWhole) {
    Parted boxes({{0, 0, 8, 0}, {0, 0, 0, 8}});
    const int half = boxes.cut(0, {0, 0, 4, 0});
    boxes.remove(half);
    const int quarter = boxes.cut(half, {0, 0, 2, 0});
    const int other = boxes.cut(half, {2, 0, 4, 0});
    EXPECT_EQ(boxes.later(1), std::vector<int>{quarter});
    EXPECT_EQ(boxes.later(quarter), std::vector<int>{other});
}

/// A whole keeps some parts by itself; where there are a hundred, it has no list either.
class ManyPartsTest : public ::testing::TestWithParam<int> {};

TEST_P(ManyPartsTest, EachPartOfAWholeIsFound) {
    const int parts = GetParam();
    std::vector<PlanBox> wholes{{0, 0, 1.0 * parts, 0}};
    for (int i = 0; i < parts; ++i) {
        wholes.push_back({i + 0.5, 0, i + 0.5, 1}); // each on the part of its number
    }
    Parted boxes(wholes);
    for (int i = 0; i < parts; ++i) {
        boxes.cut(0, {i + 0.25, 0, i + 0.75, 0});
    }
    for (int i = 0; i < parts; ++i) {
        EXPECT_EQ(boxes.later(1 + i), std::vector<int>{1 + parts + i});
    }
    for (int i = 0; i < parts; i += 2) {
        boxes.remove(1 + parts + i);
    }
    for (int i = 0; i < parts; ++i) {
        EXPECT_EQ(boxes.later(1 + i).empty(), i % 2 == 0) << i;
    }
    boxes.expectAnswers();
}

INSTANTIATE_TEST_SUITE_P(PartedBoxes, ManyPartsTest, ::testing::Values(15, 16, 17, 25, 100));

constexpr PlanBox kLeft{0, 0, 10, 0};
constexpr PlanBox kRight{10 + 3 * kReach, 0, 20, 0};
// Each leaves its whole by the reach and comes as near to the other one.
constexpr PlanBox kLeftPart{5, 0, 10 + kReach, 0};
constexpr PlanBox kRightPart{10 + 2 * kReach, 0, 15, 0};

/// Of the first two wholes.
void expectPartsFindOneAnother(const std::vector<PlanBox>& wholes) {
    Parted boxes(wholes);
    const bool leftIsFirst = wholes[0].minX < wholes[1].minX;
    const int first = boxes.cut(0, leftIsFirst ? kLeftPart : kRightPart);
    const int second = boxes.cut(1, leftIsFirst ? kRightPart : kLeftPart);
    EXPECT_EQ(boxes.later(first), std::vector<int>{second}) << leftIsFirst;
    boxes.expectAnswers();
}

TEST(PartedBoxes, PartsThatLeaveTheirWholesByTheReachFindOneAnother) {
    expectPartsFindOneAnother({kLeft, kRight});
    expectPartsFindOneAnother({kRight, kLeft});
}

/// The right one has no list, for forty others stand at its far end.
TEST(PartedBoxes, PartsFindOneAnotherWhereOneOfTheWholesHasNoList) {
    std::vector<PlanBox> wholes(42, PlanBox{20, 0, 20, 1});
    wholes[0] = kLeft;
    wholes[1] = kRight;
    expectPartsFindOneAnother(wholes);
    std::swap(wholes[0], wholes[1]);
    expectPartsFindOneAnother(wholes);
}

TEST(PartedBoxes, APartElsewhereFindsWhatLeavesItsWholeByTheReach) {
    Parted boxes({{100, 100, 200, 200}, kLeft});
    const int elsewhere = boxes.cut(0, {10 + 2 * kReach, -1, 200, 200});
    const int near = boxes.cut(1, kLeftPart);
    EXPECT_EQ(boxes.later(elsewhere), std::vector<int>{near});
}

/// To the left, below, to the right and above, each with a box at its far end.
TEST(PartedBoxes, APartThatLeavesItsWholeByOneSideIsFoundThere) {
    Parted boxes(
        {{0, 0, 10, 10}, {-20, 5, -20, 5}, {5, -20, 5, -20}, {30, 5, 30, 5}, {5, 30, 5, 30}});
    const std::vector<int> parts{boxes.cut(0, {-20, 0, 10, 10}), boxes.cut(0, {0, -20, 10, 10}),
                                 boxes.cut(0, {0, 0, 30, 10}), boxes.cut(0, {0, 0, 10, 30})};
    for (int side = 0; side < 4; ++side) {
        EXPECT_EQ(boxes.later(1 + side), std::vector<int>{parts[static_cast<std::size_t>(side)]});
    }
}

/// More than stand in a list.
TEST(PartedBoxes, EachOfManyBoxesAtOnePlaceIsFound) {
    constexpr int wholes = 100;
    Parted boxes(std::vector<PlanBox>(wholes, PlanBox{0, 0, 8, 8}));
    const int left = boxes.cut(3, {0, 0, 1, 8});
    const int right = boxes.cut(99, {7, 0, 8, 8});
    EXPECT_EQ(boxes.later(10).size(), 91U); // 89 wholes and both parts
    EXPECT_TRUE(boxes.later(left).empty());
    EXPECT_TRUE(boxes.later(right).empty());
    boxes.expectAnswers();
}

/// The arc of a piece may reach round its circle over what its pipe was.
TEST(PartedBoxes, APartThatLeavesItsWholeIsFoundWhereItLies) {
    Parted boxes({{0, 0, 1, 1}, {50, 50, 51, 51}, {0.5, 0.5, 0.5, 0.5}});
    const int part = boxes.cut(0, {0, 0, 60, 60});
    EXPECT_EQ(boxes.later(1), std::vector<int>{part});
    EXPECT_EQ(boxes.later(2), std::vector<int>{part});
    const int within = boxes.cut(1, {50, 50, 50.5, 50.5});
    EXPECT_EQ(boxes.later(part), std::vector<int>{within});
    boxes.remove(part);
    EXPECT_EQ(boxes.later(1), std::vector<int>{within});
    EXPECT_TRUE(boxes.later(2).empty());
}

TEST(PartedBoxes, ABoxThatIsNoNumberHidesNoOther) {
    Parted boxes({{kNoNumber, 0, 1, 1}, {0, 0, 1, 1}, {0, 0, 1, 1}, kWholePlane});
    EXPECT_EQ(boxes.later(1), (std::vector<int>{2, 3}));
    const int part = boxes.cut(0, {0, 0, 0.5, 1});
    EXPECT_EQ(boxes.later(1), (std::vector<int>{2, 3, part}));
    EXPECT_EQ(boxes.later(3), std::vector<int>{part});
    boxes.cut(1, {0, kNoNumber, 1, kNoNumber});
    EXPECT_EQ(boxes.later(2), (std::vector<int>{3, part}));
}

TEST(PartedBoxes, AReachWithoutBoundFindsAll) {
    for (const double reach : {kBoundless, kNoNumber}) {
        Parted boxes({{0, 0, 1, 1}, {100, 100, 101, 101}, {-1e9, 0, -1e9, 0}}, reach);
        const int part = boxes.cut(0, {0, 0, 0.5, 1});
        EXPECT_EQ(boxes.later(0), (std::vector<int>{1, 2, part})) << reach;
        EXPECT_EQ(boxes.later(2), std::vector<int>{part}) << reach;
    }
}

/// A box at one end of another, some way into it or somewhat beyond.
PlanBox partOf(std::mt19937& random, const PlanBox& box) {
    const double share = between(random, 0.1, 1.02);
    const double x = box.minX + (box.maxX - box.minX) * share;
    const double y = box.minY + (box.maxY - box.minY) * share;
    return upTo(random, 2) == 0 ? PlanBox{box.minX, box.minY, x, y}
                                : PlanBox{std::min(x, box.maxX), std::min(y, box.maxY),
                                          std::max(x, box.maxX), std::max(y, box.maxY)};
}

void cutSome(Parted& boxes, std::mt19937& random, int cuts) {
    for (int i = 0; i < cuts; ++i) {
        const int item = static_cast<int>(upTo(random, static_cast<std::size_t>(boxes.size())));
        const PlanBox whole = boxes.box(item);
        boxes.cut(item, partOf(random, whole));
        boxes.cut(item, partOf(random, whole));
    }
}

TEST(PartedBoxes, RandomBoxesAreFoundAsByAPlainScan) {
    std::mt19937 random(20261123);
    for (const Spread& spread : kSpreads) {
        for (int drawing = 0; drawing < 20; ++drawing) {
            std::vector<PlanBox> wholes;
            const double size = spread.width * (drawing % 2 == 0 ? 0.05 : 0.5);
            for (std::size_t i = 0; i < 5 + upTo(random, 120); ++i) {
                wholes.push_back(someBox(random, spread.somePoint(random), size));
            }
            Parted boxes(wholes, spread.width * (drawing % 3 == 0 ? 1e-2 : 1e-6));
            const int drawn = boxes.size();
            cutSome(boxes, random, drawn / 2);
            for (int part = drawn; part < boxes.size(); part += 3) {
                boxes.remove(part);
            }
            cutSome(boxes, random, drawn / 4);
            boxes.expectAnswers();
        }
    }
}

} // namespace
} // namespace module_tests
