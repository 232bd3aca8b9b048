// Pipes that cross in a grid: every crossing is cut, and the network closes on itself.

#include "module/pressure/PressureDump.h"
#include "module/pressure/PressureTest.h"

namespace module_tests {

namespace {

class GridPressureTest : public PressureTest {
protected:
    /// `side` streets and as many avenues, ten apart, each reaching five beyond the last crossing.
    Ids drawGrid(int side) {
        const double far = 10.0 * (side - 1) + 5.0;
        Ids ids;
        for (int i = 0; i < side; ++i) {
            ids.push_back(drawing.main({-5, 10.0 * i, 0}, {far, 10.0 * i, 0}));
        }
        for (int i = 0; i < side; ++i) {
            ids.push_back(drawing.main({10.0 * i, -5, 0}, {10.0 * i, far, 0}));
        }
        return ids;
    }
};

} // namespace

/// Each of 80 pipes is cut 40 times, so there are 80 x 41 pieces. Round each block the walk comes
/// back to where it has been.
TEST_F(GridPressureTest, FortyByFortyStreetsAreCutAndFoundClosed) {
    const Ids ids = drawGrid(40);
    const auto search40 = prepared(ids[0]);
    EXPECT_EQ(present(search40->pipePool).size(), 3280U);
    EXPECT_EQ(search(ids[0], {-5, 0, 0}), 0);
    EXPECT_EQ(rootSeg, 0);
}

/// A shallow grid crosses just as often.
TEST_F(GridPressureTest, FortyByFortyShallowPipesAreCutAndFoundClosed) {
    Ids ids;
    for (int i = 0; i < 40; ++i) {
        ids.push_back(drawing.main({0, 1.0 * i, 0}, {750, i + 50.0, 0}));
    }
    for (int i = 0; i < 40; ++i) {
        ids.push_back(drawing.main({0, i + 50.0, 0}, {750, 1.0 * i, 0}));
    }
    const auto search40 = prepared(ids[0]);
    EXPECT_EQ(present(search40->pipePool).size(), 3280U);
    EXPECT_EQ(search(ids[0], {0, 0, 0}), 0);
}

/// Half of the branches are drawn before the main, half behind it. The main is cut into 101 pieces,
/// and where each of them ends the next one and a branch go on, so that nothing is merged.
TEST_F(GridPressureTest, AMainIsCutAtEachOfAHundredBranches) {
    const auto drawBranches = [&](int first) {
        for (int i = first; i <= 100; i += 2) {
            drawing.main({10.0 * i, 0, 0}, {10.0 * i + 3.0, 5, 0});
        }
    };
    drawBranches(1);
    const AcDbObjectId main = drawing.main({0, 0, 0}, {1010, 0, 0});
    drawBranches(2);
    ASSERT_EQ(search(main, {0, 0, 0}, Mode::kPlainScan), 1);
    const std::string plain = dump(segs);
    ASSERT_EQ(search(main, {0, 0, 0}, Mode::kIndexed), 1);
    EXPECT_EQ(dump(segs), plain);
    EXPECT_EQ(count(), 201);
}

/// Picked at its outer end, so that the walk goes into the grid; one street and one avenue are a
/// cross.
TEST_F(GridPressureTest, SmallGridsAreTheSameByIndexAndByPlainScan) {
    for (const int side : {1, 2, 5}) {
        PressureDrawing own;
        Ids ids;
        for (int i = 0; i < side; ++i) {
            ids.push_back(own.main({-5, 10.0 * i, 0}, {10.0 * side, 10.0 * i, 0}));
            ids.push_back(own.main({10.0 * i, -5, 0}, {10.0 * i, 10.0 * side, 0}));
        }
        for (const AcDbObjectId id : ids) {
            const int plainResult = search(id, {-5, -5, 0}, Mode::kPlainScan);
            const std::string plain = dump(segs);
            EXPECT_EQ(search(id, {-5, -5, 0}, Mode::kIndexed), plainResult);
            EXPECT_EQ(dump(segs), plain);
            EXPECT_EQ(plainResult, side == 1 ? 1 : 0);
        }
    }
}

} // namespace module_tests
