// Networks as deep and chains as long as they may get, on a stack of eight megabytes: the depth of
// a network must cost memory, never stack.

#include "module/support/Compare.h"
#include "module/support/DeepSearch.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {

namespace {

constexpr int kCount = 100000;

class DeepNetworkTest : public DrawingTest {
protected:
    GravitySearchObject* search(AcDbObjectId start, AcDbObjectId end) {
        return deep_.search<GravitySearchObject>(start, end);
    }

private:
    DeepSearch deep_;
};

} // namespace

// Well i stands at 4 i, with a pipe of 3 to the next.
TEST_F(DeepNetworkTest, NetworkOfAHundredThousandWellsInARow) {
    AcDbObjectId first = drawing.addWell({0, 0, 0});
    AcDbObjectId last;
    for (int i = 1; i < kCount; ++i) {
        const double x = 4.0 * i;
        drawing.addPipe({x - 3.5, 0, 0}, {x - 0.5, 0, 0});
        last = drawing.addWell({x, 0, 0});
    }
    const GravitySearchObject* network = search(first, last);
    ASSERT_NE(network, nullptr);
    ASSERT_EQ(network->wells.GetSize(), kCount);
    ASSERT_EQ(network->segs.GetSize(), kCount - 1);
    EXPECT_EQ(network->wells[kCount - 1].nodeEntity, last);
    EXPECT_EQ(network->wells[kCount - 1].inSeg, kCount - 2);
    EXPECT_EQ(network->segs[kCount - 2].startWell, kCount - 2);
    EXPECT_EQ(network->pathWells.GetSize(), kCount);
    EXPECT_EQ(network->pathSegs.GetSize(), kCount - 1);
    EXPECT_EQ(network->pathWells[kCount - 1], 0);
    double length = 0.0;
    for (int i = 0; i < kCount - 1; ++i) {
        length += network->segs[i].length;
    }
    EXPECT_DOUBLE_EQ(length, 3.0 * (kCount - 1));
}

// Pipe i runs from 0.5 + 2 i to 0.5 + 2 (i + 1).
TEST_F(DeepNetworkTest, ChainOfAHundredThousandPipes) {
    const AcDbObjectId first = drawing.addWell({0, 0, 0});
    const AcDbObjectId last = drawing.addWell({2.0 * kCount + 1.0, 0, 0});
    AcDbObjectId lastPipe;
    for (int i = 0; i < kCount; ++i) {
        lastPipe = drawing.addPipe({0.5 + 2.0 * i, 0, 0}, {2.5 + 2.0 * i, 0, 0});
    }
    const GravitySearchObject* network = search(first, last);
    ASSERT_NE(network, nullptr);
    ASSERT_EQ(network->wells.GetSize(), 2);
    ASSERT_EQ(network->segs.GetSize(), 1);
    const GravitySeg& seg = network->segs[0];
    ASSERT_EQ(seg.pipeIds.length(), kCount);
    EXPECT_EQ(seg.pipeIds.at(kCount - 1), lastPipe);
    EXPECT_DOUBLE_EQ(seg.length, 2.0 * kCount);
    // The middle falls on a joint, and the label on the near end of the pipe behind it.
    EXPECT_TRUE(samePoint(seg.annotatePoint, {0.5 + kCount, 0, 0}));
    EXPECT_EQ(intsOf(network->pathWells), (std::vector<int>{1, 0}));
}

} // namespace module_tests
