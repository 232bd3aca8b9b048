// What a town is by itself, before any search.

#include "town/Town.h"
#include "siblings/TemporaryFolder.h"
#include "town/TownFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace benchmark_town {
namespace {

struct Files {
    std::string drawing;
    std::string truth;
};

Files filesOf(const Town& town) {
    const sibling_tests::TemporaryFolder folder;
    writeDrawing(town, folder.path() / "town.dxf");
    writeTruth(town, folder.path() / "town.csv");
    return {folder.read("town.dxf"), folder.read("town.csv")};
}

double distance(const Place& a, const Place& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Steps from a well to its root; more than there are wells when it comes to none.
std::size_t stepsToRoot(const Town& town, std::size_t well) {
    std::size_t steps = 0;
    while (town.wells[well].parent != TownWell::kNone && steps <= town.wells.size()) {
        well = static_cast<std::size_t>(town.wells[well].parent);
        ++steps;
    }
    return steps;
}

TEST(TownTest, TheSameSeedGivesTheSameFiles) {
    const Files first = filesOf(laySewers(300, true, 7));
    const Files second = filesOf(laySewers(300, true, 7));
    EXPECT_EQ(first.drawing, second.drawing);
    EXPECT_EQ(first.truth, second.truth);
    EXPECT_EQ(filesOf(layWaterMain(300, 7)).drawing, filesOf(layWaterMain(300, 7)).drawing);
    EXPECT_EQ(filesOf(layDistricts(300, 7)).drawing, filesOf(layDistricts(300, 7)).drawing);
}

TEST(TownTest, AnotherSeedGivesAnotherTown) {
    EXPECT_NE(filesOf(laySewers(300, false, 7)).drawing, filesOf(laySewers(300, false, 8)).drawing);
    EXPECT_NE(filesOf(layWaterMain(300, 7)).drawing, filesOf(layWaterMain(300, 8)).drawing);
    EXPECT_NE(filesOf(layDistricts(300, 7)).drawing, filesOf(layDistricts(300, 8)).drawing);
}

TEST(TownTest, EachWellDrainsToTheRootOfItsSystem) {
    const Town town = laySewers(1001, true, 3);
    ASSERT_EQ(town.wells.size(), 1001U);
    ASSERT_EQ(town.systems.size(), 2U);
    EXPECT_EQ(town.systems[0].nodes, 501U);
    EXPECT_EQ(town.systems[1].nodes, 500U);
    for (std::size_t i = 0; i < town.wells.size(); ++i) {
        ASSERT_LT(stepsToRoot(town, i), town.wells.size());
        if (town.wells[i].parent != TownWell::kNone) {
            const auto parent = static_cast<std::size_t>(town.wells[i].parent);
            ASSERT_EQ(town.wells[i].system, town.wells[parent].system);
        }
    }
}

/// Two systems that lie among one another must not share a place by chance.
TEST(TownTest, WellsKeepTheirDistance) {
    const Town town = laySewers(400, true, 11);
    for (std::size_t i = 0; i < town.wells.size(); ++i) {
        for (std::size_t j = i + 1; j < town.wells.size(); ++j) {
            ASSERT_GT(distance(town.wells[i].place, town.wells[j].place), 5.0);
        }
    }
}

/// Ends that lie in no well keep a metre from all wells; two of one gap are at most 0.3 metres
/// apart, others more than a metre.
TEST(TownTest, FreeEndsOfDifferentRunsKeepApart) {
    const Town town = laySewers(600, true, 13);
    std::vector<Place> free;
    for (const TownPipe& pipe : town.pipes) {
        for (const Place& end : {pipe.start, pipe.end}) {
            const auto holds = [&](const TownWell& well) {
                return distance(well.place, end) < 0.5 + 1e-9;
            };
            if (std::any_of(town.wells.begin(), town.wells.end(), holds)) {
                continue;
            }
            free.push_back(end);
            ASSERT_TRUE(std::none_of(town.wells.begin(), town.wells.end(), [&](const auto& well) {
                return distance(well.place, end) < 1.0;
            }));
        }
    }
    ASSERT_GT(free.size(), 500U);
    for (std::size_t i = 0; i < free.size(); ++i) {
        long fellows = 0;
        for (std::size_t j = 0; j < free.size(); ++j) {
            const double apart = distance(free[i], free[j]);
            fellows += i != j && apart < 0.3 + 1e-9 ? 1 : 0;
            ASSERT_TRUE(i == j || apart < 0.3 + 1e-9 || apart > 1.0);
        }
        ASSERT_LE(fellows, 1);
    }
}

TEST(TownTest, WaterFallsByTheSlopeAlongEachPipe) {
    for (const Town& town : {laySewers(500, true, 5), layDistricts(500, 5), layWaterMain(500, 5)}) {
        for (const TownPipe& pipe : town.pipes) {
            const double fall = pipe.flowsToEnd ? pipe.startHeight - pipe.endHeight
                                                : pipe.endHeight - pipe.startHeight;
            ASSERT_NEAR(fall, 0.003 * distance(pipe.start, pipe.end), 1e-9);
        }
    }
}

/// Runs in pieces, arcs, turned pipes and dead ends: without them the searches would have it easy.
TEST(TownTest, SewersHaveAllThatMakesDrawingsHard) {
    const Town town = laySewers(1000, false, 18);
    // 999 runs, of which a tenth have three pieces and three tenths two, and some thirty dead ends.
    EXPECT_GT(town.pipes.size(), 1400U);
    EXPECT_LT(town.pipes.size(), 1650U);
    const auto arcs = std::count_if(town.pipes.begin(), town.pipes.end(),
                                    [](const TownPipe& pipe) { return pipe.bulge != 0.0; });
    const auto turned = std::count_if(town.pipes.begin(), town.pipes.end(),
                                      [](const TownPipe& pipe) { return !pipe.flowsToEnd; });
    EXPECT_GT(arcs, 10);
    EXPECT_GT(turned, 300);
    EXPECT_FALSE(std::is_sorted(town.order.begin(), town.order.end()));
    const std::set<std::size_t> drawn(town.order.begin(), town.order.end());
    EXPECT_EQ(drawn.size(), town.wells.size() + town.pipes.size());
}

TEST(TownTest, HandlesCountWellsAndThenPipes) {
    const Town town = laySewers(10, false, 1);
    EXPECT_EQ(wellHandle(0), "1000");
    EXPECT_EQ(wellHandle(9), "1009");
    EXPECT_EQ(pipeHandle(town, 0), "100A");
}

/// 40 rising lines and 40 falling ones, 40 streets and 40 avenues; 40 by 40 places with 40 times 39
/// arcs along either axis.
TEST(TownTest, GridsHaveTheirPipes) {
    EXPECT_EQ(layGrid(GridKind::kShallow, 40, false).pipes.size(), 80U);
    EXPECT_EQ(layGrid(GridKind::kSquare, 40, false).pipes.size(), 80U);
    EXPECT_EQ(layGrid(GridKind::kArcs, 40, false).pipes.size(), 3120U);
    EXPECT_TRUE(layGrid(GridKind::kArcs, 40, false).wells.empty());
    EXPECT_EQ(layGrid(GridKind::kShallow, 40, true).wells.size(), 1U);
    EXPECT_EQ(layPipes(2500).pipes.size(), 2500U);
}

} // namespace
} // namespace benchmark_town
