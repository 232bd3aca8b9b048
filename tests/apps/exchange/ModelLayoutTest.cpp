#include "exchange/ModelLayout.h"

#include "EmbeddedHost.h"
#include "exchange/AwayFromSource.h"
#include "exchange/MainCrossings.h"
#include "exchange/MapScale.h"
#include "exchange/NearestNode.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using pipenet::LayoutUnits;
using pipenet::ModelFormat;
using pipenet::ModelNodeKind;
using pipenet::PipeModel;
using pipenet::PlanPoint;

PipeModel model(ModelFormat format, const std::vector<PlanPoint>& places,
                const std::vector<std::pair<std::size_t, std::size_t>>& links) {
    PipeModel made;
    made.format = format;
    for (const PlanPoint& place : places) {
        pipenet::ModelNode node;
        node.name = "n" + std::to_string(made.nodes.size());
        node.at = place;
        made.nodes.push_back(node);
    }
    for (const auto& [from, to] : links) {
        pipenet::ModelLink link;
        link.name = "l" + std::to_string(made.links.size());
        link.from = from;
        link.to = to;
        made.links.push_back(link);
    }
    return made;
}

void expectPoint(const PlanPoint& found, double x, double y) {
    EXPECT_NEAR(found.x, x, 1e-9);
    EXPECT_NEAR(found.y, y, 1e-9);
}

TEST(ModelLayoutTest, SewersRunFromRimToRim) {
    PipeModel sewer = model(ModelFormat::swmm, {{0, 0}, {30, 40}}, {{0, 1}});
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{});
    ASSERT_EQ(layout.links[0].points.size(), 2U);
    // 0.35 of 50 units along (30, 40).
    expectPoint(layout.links[0].points[0], 0.21, 0.28);
    expectPoint(layout.links[0].points[1], 29.79, 39.72);
}

TEST(ModelLayoutTest, ADrawingUnitOfHalfAMetreDoublesEverything) {
    PipeModel sewer = model(ModelFormat::swmm, {{0, 0}, {30, 40}}, {{0, 1}});
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{2.0, 0.4});
    EXPECT_DOUBLE_EQ(layout.nodes[0].radius, 0.7);
    expectPoint(layout.links[0].points[1], 59.58, 79.44);
}

/// Nodes at 0.65 from each other have room for radii of (0.65 - 0.05) / 3.
TEST(ModelLayoutTest, NodesThatCrowdAreNarrower) {
    PipeModel sewer =
        model(ModelFormat::swmm, {{0, 0}, {0, 0.65}, {30, 0}, {30, 20}}, {{0, 2}, {1, 3}});
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{});
    EXPECT_NEAR(layout.nodes[0].radius, 0.2, 1e-9);
    EXPECT_NEAR(layout.nodes[1].radius, 0.2, 1e-9);
    EXPECT_NEAR(layout.nodes[2].radius, 0.35, 1e-9);
}

TEST(ModelLayoutTest, TheFirstBendStaysOutsideTheRim) {
    PipeModel sewer = model(ModelFormat::swmm, {{0, 0}, {30, 0}}, {{0, 1}});
    sewer.links[0].vertices = {{0.0, 0.2}};
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{});
    EXPECT_NEAR(layout.nodes[0].radius, 0.18, 1e-9);
    ASSERT_EQ(layout.links[0].points.size(), 3U);
    expectPoint(layout.links[0].points[0], 0.0, 0.18);
}

TEST(ModelLayoutTest, VerticesThatRepeatAPointAreDropped) {
    PipeModel sewer = model(ModelFormat::swmm, {{0, 0}, {30, 0}}, {{0, 1}});
    sewer.links[0].vertices = {{0, 0}, {10, 5}, {10, 5}, {30, 0}};
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{});
    ASSERT_EQ(layout.links[0].points.size(), 3U);
    expectPoint(layout.links[0].points[1], 10, 5);
}

/// The ends of a polyline decide, however long the way between them is.
TEST(ModelLayoutTest, APipeWhoseEndsStandTooNearIsLeftOut) {
    PipeModel sewer = model(ModelFormat::swmm, {{0, 0}, {1, 0}, {50, 0}}, {{0, 1}, {1, 2}});
    sewer.links[0].vertices = {{0, 30}, {1, 30}};
    const pipenet::ModelLayout layout = layOut(sewer, LayoutUnits{});
    EXPECT_TRUE(layout.links[0].points.empty());
    EXPECT_FALSE(layout.links[1].points.empty());
    EXPECT_EQ(sewer.notes.size(), 1U);
}

TEST(ModelLayoutTest, MainsMeetAtTheirNodes) {
    PipeModel main = model(ModelFormat::epanet, {{0, 0}, {10, 0}}, {{0, 1}});
    const pipenet::ModelLayout layout = layOut(main, LayoutUnits{});
    expectPoint(layout.links[0].points[0], 0, 0);
    expectPoint(layout.links[0].points[1], 10, 0);
    EXPECT_FALSE(layout.links[0].isTurned);
}

/// 2 - 1 - 0 - 3 with the reservoir at 0; links are given 1 to 0, 1 to 2, 3 to 0, and 4 to 5 apart.
TEST(ModelLayoutTest, MainsLeadAwayFromTheReservoir) {
    PipeModel main =
        model(ModelFormat::epanet, {{0, 0}, {10, 0}, {20, 0}, {0, 9}, {50, 0}, {60, 0}},
              {{1, 0}, {1, 2}, {3, 0}, {4, 5}});
    main.nodes[0].kind = ModelNodeKind::reservoir;
    EXPECT_EQ(turnedAwayFromSource(main), (std::vector<bool>{true, false, true, false}));
}

TEST(ModelLayoutTest, ATankIsASourceOnlyWhereThereIsNoReservoir) {
    PipeModel main = model(ModelFormat::epanet, {{0, 0}, {10, 0}, {20, 0}, {50, 0}, {60, 0}},
                           {{0, 1}, {1, 2}, {3, 4}});
    main.nodes[0].kind = ModelNodeKind::tank;
    main.nodes[2].kind = ModelNodeKind::reservoir;
    main.nodes[4].kind = ModelNodeKind::tank;
    EXPECT_EQ(turnedAwayFromSource(main), (std::vector<bool>{true, true, true}));
}

/// Ratios 1, 3 and 9: the middle one says that the map is a scheme.
TEST(ModelLayoutTest, TheMiddleRatioDecidesAboutTheScale) {
    PipeModel main =
        model(ModelFormat::epanet, {{0, 0}, {10, 0}, {20, 0}, {30, 0}}, {{0, 1}, {1, 2}, {2, 3}});
    main.links[0].length = 10.0;
    main.links[1].length = 30.0;
    main.links[2].length = 90.0;
    EXPECT_DOUBLE_EQ(metresOfMapUnit(main), 3.0);
    EXPECT_EQ(main.notes.size(), 1U);
    main.links[1].length = 20.0;
    EXPECT_DOUBLE_EQ(metresOfMapUnit(main), 1.0);
    main.mapUnit = 0.3048;
    EXPECT_GT(metresOfMapUnit(main), 2.0 * 0.3048);
    EXPECT_EQ(main.notes.size(), 2U);
}

/// Links 0 and 1 cross at (5, 0); 2 ends on 0 at (8, 0); 3 begins at a node of 0; 4 is parallel.
TEST(ModelLayoutTest, MainsThatCrossWithoutJoiningAreFound) {
    PipeModel main =
        model(ModelFormat::epanet,
              {{0, 0}, {10, 0}, {5, -5}, {5, 5}, {8, 0}, {8, 9}, {12, 7}, {0, 2}, {4, 2}},
              {{0, 1}, {2, 3}, {4, 5}, {1, 6}, {7, 8}});
    const auto found = mainCrossings(main, layOut(main, LayoutUnits{}));
    using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;
    EXPECT_EQ(found, (Pairs{{0, 1}, {0, 2}}));
    EXPECT_EQ(main.notes.size(), 1U);
}

AcGePoint3d inSpace(const PlanPoint& place) {
    return {place.x, place.y, 0.0};
}

TEST(ModelLayoutTest, TheSweepFindsTheCrossingsOfAPlainScan) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> anywhere(0.0, 100.0);
    std::vector<PlanPoint> places;
    std::vector<std::pair<std::size_t, std::size_t>> links;
    for (std::size_t i = 0; i < 60; ++i) {
        places.push_back({anywhere(random), anywhere(random)});
        places.push_back({anywhere(random), anywhere(random)});
        links.emplace_back(2 * i, 2 * i + 1);
    }
    PipeModel main = model(ModelFormat::epanet, places, links);
    std::size_t crossings = 0;
    for (std::size_t i = 0; i < links.size(); ++i) {
        for (std::size_t k = i + 1; k < links.size(); ++k) {
            const AcGeLineSeg3d one(inSpace(places[2 * i]), inSpace(places[2 * i + 1]));
            const AcGeLineSeg3d other(inSpace(places[2 * k]), inSpace(places[2 * k + 1]));
            AcGePoint3d place;
            crossings += one.intersectWith(other, place) ? 1 : 0;
        }
    }
    EXPECT_GT(crossings, 100U);
    EXPECT_EQ(mainCrossings(main, layOut(main, LayoutUnits{})).size(), crossings);
}

TEST(ModelLayoutTest, TheNearestOtherIsThatOfAPlainScan) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-20.0, 20.0);
    std::vector<PlanPoint> places;
    for (int i = 0; i < 300; ++i) {
        places.push_back({anywhere(random), anywhere(random)});
    }
    const std::vector<double> found = pipenet::nearestOthers(places, 1.5);
    bool anyFar = false;
    for (std::size_t i = 0; i < places.size(); ++i) {
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t k = 0; k < places.size(); ++k) {
            least = i == k ? least : std::min(least, distance(places[i], places[k]));
        }
        anyFar = anyFar || least > 1.5;
        EXPECT_EQ(found[i], std::min(least, 1.5));
    }
    EXPECT_TRUE(anyFar);
}

} // namespace
