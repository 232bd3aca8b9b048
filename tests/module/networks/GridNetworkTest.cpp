// Pipes that cross in a grid. Ways through it are beyond any measure, so what a chain cannot reach
// must be known without trying them all, and what it can reach must be what trying would find.

#include "gravity/GravityNetworkSearch.h"
#include "module/networks/NetworkDump.h"
#include "module/support/DrawingBuilder.h"

#include <gtest/gtest.h>

#include <vector>

namespace module_tests {

namespace {

using tkvlt::CandidateMode;
using tkvlt::GravityNetworkSearch;

using Ids = std::vector<AcDbObjectId>;

/// Rises with one slope and falls with the same, a metre apart, so that each of the first `side`
/// pipes crosses each of the others. They cross at less than 18 degrees, or no chain would turn.
Ids drawShallowGrid(DrawingBuilder& drawing, int side) {
    const double rise = side + 10.0;
    const double length = 15.0 * rise;
    Ids ids;
    for (int i = 0; i < side; ++i) {
        ids.push_back(drawing.addPipe({0, 1.0 * i, 0}, {length, i + rise, 0}));
    }
    for (int i = 0; i < side; ++i) {
        ids.push_back(drawing.addPipe({0, i + rise, 0}, {length, 1.0 * i, 0}));
    }
    return ids;
}

/// `side` by `side` places ten metres apart, neighbours joined by arcs: a chain turns anywhere.
Ids drawArcGrid(DrawingBuilder& drawing, int side) {
    Ids ids;
    const auto at = [](int x, int y) { return AcGePoint3d(10.0 * x, 10.0 * y, 0); };
    for (int x = 0; x < side; ++x) {
        for (int y = 0; y < side; ++y) {
            if (x + 1 < side) {
                ids.push_back(drawing.addArcPipe(at(x, y), at(x + 1, y), 0.1));
            }
            if (y + 1 < side) {
                ids.push_back(drawing.addArcPipe(at(x, y), at(x, y + 1), -0.1));
            }
        }
    }
    return ids;
}

/// Streets and avenues as one pipe each; a straight pipe turns into none of the others.
Ids drawSquareGrid(DrawingBuilder& drawing, int side) {
    Ids ids;
    for (int i = 0; i < side; ++i) {
        ids.push_back(drawing.addPipe({-5, 10.0 * i, 0}, {10.0 * side, 10.0 * i, 0}));
        ids.push_back(drawing.addPipe({10.0 * i, -5, 0}, {10.0 * i, 10.0 * side, 0}));
    }
    return ids;
}

struct Outcome {
    int result = 0;
    int abortFlag = 0;
    int targetIndex = 0;
    GravitySearchObject network;
};

void run(Outcome& outcome, CandidateMode mode, AcDbObjectId start) {
    AcDbObjectId none;
    AcGePoint3d origin;
    GravityNetworkSearch search(&outcome.network, start, none, origin, mode);
    search.takeBacksBeforeOutlook = 4;
    outcome.result = search.Run();
    outcome.abortFlag = search.abortFlag;
    outcome.targetIndex = search.targetIndex;
}

int searchIndexed(AcDbObjectId start, int* abortFlag = nullptr) {
    Outcome outcome;
    run(outcome, CandidateMode::kIndexed, start);
    if (abortFlag != nullptr) {
        *abortFlag = outcome.abortFlag;
    }
    return outcome.result;
}

int buildSingle(GravitySeg& seg, AcDbObjectId pipe, CandidateMode mode = CandidateMode::kIndexed) {
    AcDbObjectId none;
    AcGePoint3d origin;
    GravityNetworkSearch search(nullptr, none, none, origin, mode);
    search.CollectEntitiesOnly();
    return search.BuildSinglePipeSeg(seg, pipe, kSewer);
}

AcGePoint3d endOf(AcDbObjectId pipe) {
    return _Pipe(pipe, CString()).endPoint;
}

void expectSameAsPlain(const Ids& ids) {
    for (const AcDbObjectId id : ids) {
        Outcome plain;
        Outcome indexed;
        run(plain, CandidateMode::kPlainScan, id);
        run(indexed, CandidateMode::kIndexed, id);
        ASSERT_EQ(plain.result, indexed.result);
        ASSERT_EQ(plain.abortFlag, indexed.abortFlag);
        ASSERT_EQ(plain.targetIndex, indexed.targetIndex);
        ASSERT_EQ(dump(plain.network), dump(indexed.network));
        GravitySeg plainSeg;
        GravitySeg indexedSeg;
        ASSERT_EQ(buildSingle(plainSeg, id, CandidateMode::kPlainScan),
                  buildSingle(indexedSeg, id));
        ASSERT_EQ(dump(plainSeg), dump(indexedSeg));
    }
}

using Draw = Ids (*)(DrawingBuilder&, int);

} // namespace

/// 40 by 40 pipes cross 1600 times; nothing is reached from any of them.
TEST(GridNetworkTest, WithoutAWellNothingIsReached) {
    for (const Draw draw : {drawShallowGrid, drawArcGrid, drawSquareGrid}) {
        DrawingBuilder drawing;
        const Ids ids = draw(drawing, 40);
        GravitySeg seg;
        for (const std::size_t i : {std::size_t{0}, ids.size() / 2, ids.size() - 1}) {
            EXPECT_EQ(searchIndexed(ids[i]), 0);
            EXPECT_EQ(buildSingle(seg, ids[i]), 0);
        }
    }
}

/// With one well, at the start of the first pipe, two pipes touch it (the second one's start lies a
/// metre from its centre, which is within reach), so a chain that leaves by the one comes back by
/// the other.
TEST(GridNetworkTest, WithOneWellInACornerTheWalkComesBackToIt) {
    for (const Draw draw : {drawShallowGrid, drawArcGrid}) {
        DrawingBuilder drawing;
        const Ids ids = draw(drawing, 40);
        const AcDbObjectId well = drawing.addWell({0, 0, 0});
        int abortFlag = 0;
        EXPECT_EQ(searchIndexed(well, &abortFlag), 0);
        EXPECT_EQ(abortFlag, 1);
        EXPECT_EQ(searchIndexed(ids.back()), 0);
    }
}

/// A single pipe in the middle of the grid leads to the well on whichever side can be reached
/// first, and then not on the other.
TEST(GridNetworkTest, ASinglePipeReachesTheOneWell) {
    DrawingBuilder drawing;
    const Ids ids = drawShallowGrid(drawing, 40);
    const AcDbObjectId well = drawing.addWell({0, 0, 0});
    GravitySeg seg;
    EXPECT_EQ(buildSingle(seg, ids[55]), 2);
    EXPECT_EQ(seg.endEntity, well);
    EXPECT_TRUE(seg.startEntity.isNull());
}

TEST(GridNetworkTest, SmallGridsAreAnsweredAsByTryingEveryWay) {
    for (const int side : {2, 3}) {
        for (const Draw draw : {drawShallowGrid, drawArcGrid, drawSquareGrid}) {
            for (int wells = 0; wells < 4; ++wells) {
                SCOPED_TRACE(std::to_string(side) + " by " + std::to_string(side) + ", wells " +
                             std::to_string(wells));
                DrawingBuilder drawing;
                const Ids pipes = draw(drawing, side);
                Ids ids = pipes;
                for (int i = 0; i < wells; ++i) {
                    const std::size_t pipe = static_cast<std::size_t>(i) * 5 % pipes.size();
                    ids.push_back(drawing.addWell(endOf(pipes[pipe])));
                }
                expectSameAsPlain(ids);
            }
        }
    }
}

/// The only well lies where the fork q ends at its start, just out of p's reach, and a chain from p
/// has used q by the time it could turn round behind it: a route that uses both ends of q is none.
TEST(GridNetworkTest, ARouteThatUsesAPipeTwiceIsNone) {
    DrawingBuilder drawing;
    // p ends 0.4 before q begins; the well lies at q's start, 0.4 wide of p's reach of 0.101.
    const AcDbObjectId p = drawing.addPipe({0, 0, 0}, {20, 0, 0});
    drawing.addPipe({20.4, 0, 0}, {60, 0, 0});
    drawing.addWell({20.4, 0, 0}, {.diameter = L"0.2"});
    // Behind q a fan of pipes that all cross it and one another.
    for (int i = 0; i < 6; ++i) {
        drawing.addPipe({30.0 + i, -3.0, 0}, {50.0 + i, 2.0 + 0.3 * i, 0});
        drawing.addPipe({30.0 + i, 3.0, 0}, {50.0 + i, -2.0 - 0.3 * i, 0});
    }
    GravitySeg seg;
    EXPECT_EQ(buildSingle(seg, p), 0);
}

} // namespace module_tests
