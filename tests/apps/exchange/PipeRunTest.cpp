#include "exchange/PipeRun.h"

#include "module/support/DrawingBuilder.h"

#include <numbers>

namespace {

using pipenet::orderedRun;
using pipenet::PiecePart;
using pipenet::PipePiece;
using pipenet::PlanPoint;

class PipeRunTest : public module_tests::DrawingTest {
protected:
    static PipePiece piece(std::vector<PlanPoint> points) {
        PipePiece made;
        made.points = std::move(points);
        for (std::size_t i = 1; i < made.points.size(); ++i) {
            made.length += distance(made.points[i - 1], made.points[i]);
        }
        return made;
    }
};

TEST_F(PipeRunTest, PiecesComeInTheOrderOfTheWayWhateverTheirSense) {
    const std::vector<PiecePart> run = orderedRun(
        {piece({{30, 0}, {20.2, 0}}), piece({{0.5, 0}, {10, 0}}), piece({{20, 0}, {10.2, 0}})},
        {0, 0}, {30.5, 0}, 0.44);
    ASSERT_EQ(run.size(), 3U);
    const double ends[][2] = {{0.5, 10}, {10.2, 20}, {20.2, 30}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(run[static_cast<std::size_t>(i)].points().front().x, ends[i][0], 1e-12);
        EXPECT_NEAR(run[static_cast<std::size_t>(i)].points().back().x, ends[i][1], 1e-12);
    }
}

/// From the right into the side of an upright pipe at (0, 5), and up to its end at (0, 9).
TEST_F(PipeRunTest, AWayIntoASideLeavesByTheEndThatLeadsOn) {
    const std::vector<PiecePart> run = orderedRun(
        {piece({{0, 0}, {0, 9}}), piece({{10, 5}, {-0.1, 5}})}, {10.5, 5}, {0, 9.5}, 0.44);
    ASSERT_EQ(run.size(), 2U);
    EXPECT_NEAR(run[0].length(), 10.0, 1e-12);
    EXPECT_NEAR(run[1].length(), 4.0, 1e-12);
    EXPECT_NEAR(run[1].points().front().y, 5.0, 1e-12);
    EXPECT_NEAR(run[1].points().back().y, 9.0, 1e-12);
}

TEST_F(PipeRunTest, APartHasItsShareOfLengthAndHeights) {
    PiecePart part{piece({{0, 0}, {4, 0}, {4, 6}})};
    part.piece.startElevation = 10.0;
    part.piece.endElevation = 9.0;
    part.from = 0.8;
    part.to = 0.2;
    EXPECT_NEAR(part.length(), 6.0, 1e-12);
    EXPECT_NEAR(*part.startElevation(), 9.2, 1e-12);
    EXPECT_NEAR(*part.endElevation(), 9.8, 1e-12);
    const std::vector<PlanPoint> points = part.points();
    ASSERT_EQ(points.size(), 3U);
    EXPECT_NEAR(points[0].y, 4.0, 1e-12);
    EXPECT_NEAR(points[1].x, 4.0, 1e-12);
    EXPECT_NEAR(points[2].x, 2.0, 1e-12);
    part.piece.endElevation.reset();
    EXPECT_FALSE(part.startElevation().has_value());
}

/// A half circle over 20 units measures 10 pi, however its chords are laid.
TEST_F(PipeRunTest, ArcsAreMeasuredExactly) {
    const PipePiece arc = pipenet::pipePiece(drawing.addArcPipe(
        {0, 0, 0}, {20, 0, 0}, 1.0, {.startElevation = L"3.5", .endElevation = L"no number"}));
    EXPECT_NEAR(arc.length, 10.0 * std::numbers::pi, 1e-9);
    EXPECT_EQ(arc.startElevation, 3.5);
    EXPECT_FALSE(arc.endElevation.has_value());
}

TEST_F(PipeRunTest, AnEntityWithoutACurveIsAPieceOfNothing) {
    const PipePiece none = pipenet::pipePiece(drawing.addText({1, 2, 0}, L"text"));
    EXPECT_EQ(none.points.size(), 2U);
    EXPECT_EQ(none.length, 0.0);
}

} // namespace
