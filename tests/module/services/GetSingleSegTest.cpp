// One pipe, one segment.

#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class GetSingleSegTest : public DrawingTest {
protected:
    /// A pipe from 0 to 100.
    AcDbObjectId addPipe(const wchar_t* system) {
        return drawing.addPipe({0, 0, 0}, {100, 0, 0},
                               {.system = system,
                                .diameter = L"300",
                                .flow = L"SE",
                                .startElevation = L"10",
                                .endElevation = L"9"});
    }

    void expectRefusedUntouched(const AcDbObjectId& pipe) {
        seg.kind = 7;
        EXPECT_EQ(GetSingleSeg(seg, pipe), 0);
        EXPECT_EQ(seg.kind, 7);
        EXPECT_EQ(seg.pressure.pipeIds.length(), 0);
        EXPECT_EQ(seg.gravity.pipeIds.length(), 0);
    }

    Seg seg;
};

TEST_F(GetSingleSegTest, WellsAtBothEndsGiveOne) {
    const AcDbObjectId atStart = drawing.addWell({0, 0, 0});
    const AcDbObjectId atEnd = drawing.addWell({100, 0, 0});
    const AcDbObjectId pipe = addPipe(kSewer);
    EXPECT_EQ(GetSingleSeg(seg, pipe), 1);
    EXPECT_EQ(seg.kind, 1);
    EXPECT_EQ(idsOf(seg.gravity.pipeIds), Ids{pipe});
    EXPECT_EQ(seg.gravity.endEntity, atStart);
    EXPECT_EQ(seg.gravity.startEntity, atEnd);
    EXPECT_EQ(utf8(seg.gravity.systemName), "污水");
    EXPECT_EQ(seg.pressure.pipeIds.length(), 0);
}

TEST_F(GetSingleSegTest, WellAtOneEndGivesTwo) {
    drawing.addWell({100, 0, 0});
    EXPECT_EQ(GetSingleSeg(seg, addPipe(kSewer)), 2);
    EXPECT_EQ(seg.kind, 1);
    EXPECT_TRUE(seg.gravity.endEntity.isNull());
    EXPECT_FALSE(seg.gravity.startEntity.isNull());
}

TEST_F(GetSingleSegTest, GravityPipeWithoutAnyWellGivesZeroAsGravity) {
    const AcDbObjectId pipe = addPipe(kSewer);
    EXPECT_EQ(GetSingleSeg(seg, pipe), 0);
    EXPECT_EQ(seg.kind, 1);
    EXPECT_EQ(idsOf(seg.gravity.pipeIds), Ids{pipe});
}

TEST_F(GetSingleSegTest, StretchFollowsTheSystemOfThePipe) {
    drawing.addWell({0, 0, 0}, {.system = kSewer});
    const AcDbObjectId own = drawing.addWell({100, 0, 0}, {.system = kStorm});
    EXPECT_EQ(GetSingleSeg(seg, addPipe(kStorm)), 2);
    EXPECT_EQ(seg.gravity.startEntity, own);
    EXPECT_TRUE(seg.gravity.endEntity.isNull());
}

TEST_F(GetSingleSegTest, PressurePipeAlwaysGivesOne) {
    const AcDbObjectId pipe = addPipe(kSupply);
    EXPECT_EQ(GetSingleSeg(seg, pipe), 1);
    EXPECT_EQ(seg.kind, 0);
    EXPECT_EQ(idsOf(seg.pressure.pipeIds), Ids{pipe});
    EXPECT_EQ(seg.pressure.startElevation, 10.0);
    EXPECT_EQ(seg.pressure.endElevation, 9.0);
    EXPECT_EQ(seg.gravity.pipeIds.length(), 0);
}

TEST_F(GetSingleSegTest, UnknownSystemGivesZeroAndLeavesTheSegment) {
    expectRefusedUntouched(addPipe(L"燃气"));
    expectRefusedUntouched(addPipe(L""));
    expectRefusedUntouched(addPipe(nullptr));
    expectRefusedUntouched(AcDbObjectId());
}

TEST_F(GetSingleSegTest, SystemOfNeitherFlowKindGivesZeroAndLeavesTheSegment) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 其他\n");
    expectRefusedUntouched(addPipe(kSewer));
}

TEST_F(GetSingleSegTest, OnlyThePipeSystemIsAsked) {
    // A well carries its system under another name.
    expectRefusedUntouched(drawing.addWell({0, 0, 0}));
}

} // namespace
} // namespace module_tests
