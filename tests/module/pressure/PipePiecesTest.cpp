// The pipes of a search and their pieces: what stands in the pool, and the records that are made of
// it for whoever looks at them.

#include "pressure/PipePieces.h"

#include "module/pressure/PressureTest.h"
#include "records/Candidates.h"

namespace module_tests {
namespace {

using tkvlt::PipePiece;
using tkvlt::PipePieces;
using tkvlt::RoundingSlack;

/// The middle at (-700, 30, 2), so that the circle comes as far as 900 from the origin.
AcGeCircArc3d farArc() {
    return {{-700, 30, 2}, {0, 0, 1}, 200.0};
}

std::unique_ptr<_Pipe> pipe(const AcGePoint3d& start, const AcGePoint3d& end) {
    auto made = std::make_unique<_Pipe>();
    made->isPolyline = 0;
    made->startPoint = start;
    made->endPoint = end;
    return made;
}

std::unique_ptr<_Pipe> arcPipe(const AcGePoint3d& start, const AcGePoint3d& end) {
    auto made = pipe(start, end);
    made->isArc = 1;
    made->arc = farArc();
    return made;
}

TEST(PipePieces, SlackIsThatOfTheLargestCoordinateOfAnyEnd) {
    PipePieces pipes;
    EXPECT_EQ(RoundingSlack(pipes), 0.0);
    pipes.Add(pipe({1, 2, 3}, {-8, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 8e-14);
    pipes.Add(pipe({1, 50, 3}, {1, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 50e-14);
    pipes.Add(pipe({1, 2, 3}, {1, 2, 4}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 50e-14) << "the last is nearer to the origin";
}

TEST(PipePieces, SlackGoesByAnArcOnlyForAPipeThatIsOne) {
    PipePieces pipes;
    auto straight = pipe({1, 2, 3}, {4, 2, 3});
    straight->arc = farArc();
    pipes.Add(std::move(straight));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 4e-14);
    pipes.Add(arcPipe({1, 2, 3}, {4, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 900e-14);
    pipes.Add(pipe({0, 0, 0}, {1000, 0, 0}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 1000e-14);
}

TEST(PipePieces, SlackStaysWhenAnArcLiesNearerThanThePipesBeforeIt) {
    PipePieces pipes;
    pipes.Add(pipe({0, 0, 0}, {1000, 0, 0}));
    pipes.Add(arcPipe({1, 2, 3}, {4, 2, 3}));
    EXPECT_DOUBLE_EQ(RoundingSlack(pipes), 1000e-14);
}

TEST(PipePieces, AnEntryIsCopiedWithItsIdAndAnArcOfItsOwn) {
    PipePieces pipes;
    pipes.Add(arcPipe({1, 2, 3}, {4, 2, 3}));
    ASSERT_EQ(pipes.AddCopyOf(0), 1);
    pipes.ArcOf(1).set({0, 0, 0}, {0, 0, 1}, 5.0);
    pipes.Set(1, {{5, 0, 0}, {0, 5, 0}, 1, 0});
    EXPECT_EQ(pipes.ArcOf(0).radius(), 200.0);
    EXPECT_TRUE(samePoint(pipes[0].startPoint, {1, 2, 3}, 0));
    EXPECT_EQ(pipes[0].orientationFlag, 1);
    EXPECT_EQ(pipes[1].arc.radius(), 5.0);
    EXPECT_TRUE(samePoint(pipes[1].startPoint, {5, 0, 0}, 0));
    EXPECT_TRUE(samePoint(pipes[1].endPoint, {0, 5, 0}, 0));
    EXPECT_EQ(pipes[1].orientationFlag, 0);
}

TEST(PipePieces, ClosingUpAndRestoringKeepEveryPieceBesideItsEntry) {
    PipePieces pipes;
    for (int i = 0; i < 4; ++i) {
        pipes.Add(AcDbObjectId(), PipePiece{{double(i), 0, 0}, {double(i), 9, 0}});
    }
    pipes.Remove(1);
    pipes.CloseUp();
    ASSERT_EQ(pipes.Size(), 3);
    EXPECT_EQ(pipes.At(0).startPoint.x, 0.0);
    EXPECT_EQ(pipes.At(1).startPoint.x, 2.0);
    EXPECT_EQ(pipes.At(2).startPoint.x, 3.0);
    pipes.Remove(1);
    pipes.RestoreFirst(2);
    EXPECT_EQ(tkvlt::AllPresent(pipes), (std::vector<int>{0, 1}));
    ASSERT_EQ(pipes.AddCopyOf(1), 2);
    EXPECT_EQ(pipes.At(2).startPoint.x, 2.0);
}

/// Of three pipes the first and the last are cut, the last one's second piece once more: what is
/// left in the pool is 1, 0a, 0b, 2a, 2ba, 2bb.
TEST(PipePieces, PiecesHaveThePlaceOfTheirPipeInTheDrawing) {
    PipePieces pipes;
    EXPECT_TRUE(pipes.PlacesAsDrawn().empty());
    for (int i = 0; i < 2; ++i) {
        pipes.Add(AcDbObjectId(), PipePiece{{double(i), 0, 0}, {double(i), 9, 0}});
    }
    pipes.Add(arcPipe({1, 2, 3}, {4, 2, 3}));
    for (const int cut : {0, 2, 6}) {
        pipes.AddCopyOf(cut);
        pipes.AddCopyOf(cut);
        pipes.Remove(cut);
    }
    pipes.CloseUp();
    const auto places = pipes.PlacesAsDrawn();
    EXPECT_EQ(std::vector<int>(places.begin(), places.end()), (std::vector<int>{2, 0, 1, 3, 4, 5}));
}

class PipePiecesTest : public PressureTest {};

/// A main of 30 to the right, cut at 10: the piece lies where it was cut, its direction and angle
/// are those of the whole main, which it still is by its entity, layer and system.
TEST_F(PipePiecesTest, TheRecordOfAPieceIsThatOfItsEntityWithItsOwnEnds) {
    const AcDbObjectId cut = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.main({10, 0, 0}, {10, 20, 0});
    const auto search = prepared(cut);
    ASSERT_EQ(search->pipePool.Size(), 3);
    const _Pipe drawn(cut, L"给水");
    const _Pipe& piece = search->pipePool[2];
    EXPECT_EQ(piece.id, cut);
    EXPECT_EQ(piece.valid, 1);
    EXPECT_EQ(piece.isPolyline, 0);
    EXPECT_EQ(piece.isArc, 0);
    EXPECT_EQ(piece.orientationFlag, 0);
    EXPECT_EQ(utf8(piece.systemName), "给水");
    EXPECT_EQ(utf8(piece.layer), utf8(drawn.layer));
    EXPECT_FALSE(piece.layer.IsEmpty());
    EXPECT_TRUE(samePoint(piece.startPoint, {10, 0, 0}));
    EXPECT_TRUE(samePoint(piece.endPoint, {30, 0, 0}, 0));
    EXPECT_TRUE(samePoint(piece.line.startPoint(), piece.startPoint, 0));
    EXPECT_TRUE(samePoint(piece.line.endPoint(), {30, 0, 0}, 0));
    EXPECT_EQ(piece.direction, AcGeVector3d(1, 0, 0));
    EXPECT_EQ(piece.angle, 0.0);
}

TEST_F(PipePiecesTest, ARecordThatWasLookedAtFollowsItsPiece) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    const auto search = collected(main);
    PipePieces& pipes = search->pipePool;
    ASSERT_TRUE(samePoint(pipes[0].endPoint, {30, 0, 0}, 0));
    PipePiece moved = pipes.At(0);
    moved.endPoint = {31, 0, 0};
    pipes.Set(0, moved);
    EXPECT_TRUE(samePoint(pipes[0].endPoint, {31, 0, 0}, 0));
    EXPECT_TRUE(samePoint(pipes[0].line.endPoint(), {31, 0, 0}, 0));
}

TEST_F(PipePiecesTest, OfAStraightPipeNoRecordStandsUntilItIsLookedAt) {
    const AcDbObjectId main = drawing.main({0, 0, 0}, {30, 0, 0});
    drawing.arc({0, 40, 0}, {10, 40, 0}, 1.0);
    for (const Mode mode : {Mode::kIndexed, Mode::kPlainScan}) {
        const auto search = prepared(main, {}, mode);
        ASSERT_EQ(search->pipePool.Size(), 2);
        EXPECT_FALSE(search->pipePool.IsRead(0));
        EXPECT_TRUE(search->pipePool.IsRead(1));
        EXPECT_EQ(search->pipePool[0].id, main);
        EXPECT_TRUE(search->pipePool.IsRead(0));
    }
}

} // namespace
} // namespace module_tests
