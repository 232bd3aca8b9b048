#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

class SearchSetUp : public SearchTest {};
INSTANTIATE_TEST_SUITE_P(Modes, SearchSetUp, bothModes(), modeName);

TEST_P(SearchSetUp, StartsWithoutAbortAndWithEmptyPools) {
    drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const auto& context = begin();
    EXPECT_EQ(context.abortFlag, 0);
    EXPECT_TRUE(context.pipePool.IsEmpty());
    EXPECT_TRUE(context.wellPool.IsEmpty());
    EXPECT_TRUE(context.tankPool.IsEmpty());
    EXPECT_TRUE(context.systemName.IsEmpty());
    EXPECT_EQ(context.result, network.get());
    EXPECT_EQ(context.startId, &startId);
    EXPECT_EQ(context.endId, &endId);
    EXPECT_EQ(context.searchPoint, &point);
}

TEST_P(SearchSetUp, SnapDistanceIsTheScaledBreakDistanceTimesFourPointFour) {
    drawing.setDwgScale(2.0);
    drawing.setBreakDist(0.3);
    const auto& context = begin();
    EXPECT_DOUBLE_EQ(context.dwgScale, 2.0);
    EXPECT_DOUBLE_EQ(context.snapDist, 2.64);
}

TEST_P(SearchSetUp, DrawScaleTakesNoPartInTheSnapDistance) {
    drawing.setDrawScale(500.0);
    EXPECT_DOUBLE_EQ(begin().snapDist, 0.44); // 1 x 0.1 x 4.4
}

TEST_P(SearchSetUp, SettingsAreReadOnce) {
    drawing.setLengthMode(1);
    const auto& context = begin();
    drawing.setLengthMode(0);
    drawing.setBreakDist(5.0);
    drawing.setDwgScale(9.0);
    EXPECT_EQ(search->CollectEntitiesOnly(), 1);
    EXPECT_EQ(context.lengthMode, 1);
    EXPECT_DOUBLE_EQ(context.snapDist, 0.44);
    EXPECT_DOUBLE_EQ(context.dwgScale, 1.0);
}

TEST_P(SearchSetUp, LengthModeIsTheSettingAsItStands) {
    for (const int mode : {0, 1, 2, -7}) {
        drawing.setLengthMode(mode);
        EXPECT_EQ(begin().lengthMode, mode);
    }
}

} // namespace
} // namespace module_tests
