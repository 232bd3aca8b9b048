// Runs as long and trees as deep as they may get, on a stack of eight megabytes: the depth of a
// network must cost memory, never stack.

#include "module/pressure/PressureTest.h"
#include "module/support/DeepSearch.h"

namespace module_tests {

namespace {

constexpr int kCount = 100000;

class DeepPressureTest : public PressureTest {
protected:
    PressureSearchObject* searchDeep(AcDbObjectId start) {
        return deep_.search<PressureSearchObject>(start);
    }

private:
    DeepSearch deep_;
};

} // namespace

TEST_F(DeepPressureTest, StraightRunOfAHundredThousandPipes) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {2, 0, 0});
    AcDbObjectId last;
    for (int i = 1; i < kCount; ++i) {
        last = drawing.main({2.0 * i, 0, 0}, {2.0 * i + 2.0, 0, 0});
    }
    PressureSearchObject* network = searchDeep(first);
    ASSERT_NE(network, nullptr);
    ASSERT_EQ(network->segs.GetSize(), 1);
    PressureSeg& run = network->segs[0];
    ASSERT_EQ(run.pipeIds.length(), kCount);
    EXPECT_EQ(run.orientationFlags.GetSize(), kCount);
    EXPECT_EQ(run.pipeIds.at(0), first);
    EXPECT_EQ(run.pipeIds.at(kCount - 1), last);
    EXPECT_EQ(run.GetLength(), 2.0 * kCount);
    EXPECT_TRUE(samePoint(run.GetSearchPoint(), {2.0 * kCount, 0, 0}));
}

/// Up and down by one unit, so that no pipe continues the one before it.
TEST_F(DeepPressureTest, TreeAHundredThousandPipesDeep) {
    Ids ids;
    for (int i = 0; i < kCount; ++i) {
        ids.push_back(drawing.main({2.0 * i, static_cast<double>(i % 2), 0},
                                   {2.0 * i + 2.0, static_cast<double>((i + 1) % 2), 0}));
    }
    PressureSearchObject* network = searchDeep(ids.front());
    ASSERT_NE(network, nullptr);
    ASSERT_EQ(network->segs.GetSize(), kCount);
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(network->segs[i].parent, i - 1);
        ASSERT_EQ(network->segs[i].pipeIds.length(), 1);
        ASSERT_EQ(network->segs[i].pipeIds.at(0), ids[static_cast<std::size_t>(i)]);
    }
}

/// A main with a branch every two units, cut ten thousand times: piece behind piece.
TEST_F(DeepPressureTest, MainWithTenThousandBranches) {
    constexpr int branches = 10000;
    const AcDbObjectId first = drawing.main({0, 0, 0}, {2.0 * branches + 2.0, 0, 0});
    for (int i = 1; i <= branches; ++i) {
        drawing.main({2.0 * i, 0, 0}, {2.0 * i, 2, 0});
    }
    PressureSearchObject* network = searchDeep(first);
    ASSERT_NE(network, nullptr);
    ASSERT_EQ(network->segs.GetSize(), 2 * branches + 1);
    EXPECT_EQ(network->segs[0].children.GetSize(), 2);
    EXPECT_TRUE(samePoint(network->segs[0].GetSearchPoint(), {2, 0, 0}));
}

} // namespace module_tests
