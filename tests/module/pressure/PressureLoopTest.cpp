// Networks that close on themselves.

#include "module/pressure/PressureTest.h"

namespace module_tests {

class PressureLoopTest : public PressureTest {};

/// The ring is cut open at the picked end: it closes on the root's begin point, where nothing
/// counts as ending.
///
///   +-- 3 --+
///   4       2
///   P-- 1 --+
TEST_F(PressureLoopTest, RingThatHoldsThePickedPipeIsAChainOfFour) {
    const Ids ring = {drawing.main({0, 0, 0}, {10, 0, 0}), drawing.main({10, 0, 0}, {10, 10, 0}),
                      drawing.main({10, 10, 0}, {0, 10, 0}), drawing.main({0, 10, 0}, {0, 0, 0})};
    ASSERT_EQ(search(ring[0], {0, 0, 0}), 1);
    ASSERT_EQ(count(), 4);
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 1, 2}));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(pipes(i), Ids{ring[static_cast<std::size_t>(i)]});
    }
    EXPECT_TRUE(samePoint(seg(3).GetSearchPoint(), {0, 0, 0}));
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {0, 0, 0}));
}

TEST_F(PressureLoopTest, RingOnAnotherPipeIsRefusedWithTheTreeLeft) {
    const AcDbObjectId tail = drawing.main({-10, 0, 0}, {0, 0, 0});
    drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    drawing.main({10, 10, 0}, {0, 10, 0});
    drawing.main({0, 10, 0}, {0, 0, 0});
    EXPECT_EQ(search(tail, {-10, 0, 0}), 0);
    EXPECT_EQ(rootSeg, 0);
    ASSERT_EQ(count(), 5);
    // Both ways round: the second child ends at (0, 10), and so does the fourth from the other
    // side.
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 1, 3}));
    EXPECT_TRUE(samePoint(seg(2).GetSearchPoint(), {0, 10, 0}));
    EXPECT_TRUE(samePoint(seg(4).GetSearchPoint(), {0, 10, 0}));
}

/// The tail hangs on the end of the chain, or on the first joint when the ring is walked the other
/// way; both times the ring closes on the begin point.
TEST_F(PressureLoopTest, RingWithATailIsOpenWhenThePickIsInTheRing) {
    drawing.main({-10, 0, 0}, {0, 0, 0});
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0});
    drawing.main({10, 10, 0}, {0, 10, 0});
    drawing.main({0, 10, 0}, {0, 0, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 1, 2, 3}));
    ASSERT_EQ(search(picked, {10, 0, 0}), 1);
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 2, 3}));
}

TEST_F(PressureLoopTest, FarEndsLessThanOneApartCountAsClosed) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {20, 5, 0});
    const AcDbObjectId close = drawing.main({10, 0, 0}, {20, 5.999, 0});
    EXPECT_EQ(search(root, {0, 0, 0}), 0);
    EXPECT_EQ(count(), 3);
    drawing.erase(close);
    drawing.main({10, 0, 0}, {20, 6, 0});
    EXPECT_EQ(search(root, {0, 0, 0}), 1) << "exactly one apart";
}

/// Its own length is 0.45 pi, but it ends 0.9 from where it begins.
TEST_F(PressureLoopTest, ArcThatEndsNearItsBeginCountsAsClosed) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.arc({10, 0, 0}, {10.9, 0, 0}, 1.0);
    EXPECT_EQ(search(root, {0, 0, 0}), 0);
    EXPECT_EQ(count(), 2);
}

/// The ring is walked from A on; its last pipe comes to end a step from where B ends, where 1.6 are
/// allowed. The two are joined by that, and yet not found when the step is one or more.
///
///   +---------+
///   |         |
///   |         . step
///   +-A-+--B--+
///       T
TEST_F(PressureLoopTest, RingWithAStepOfOneOrMoreIsNotFound) {
    drawing.setBreakDist(0.4);
    const AcDbObjectId tail = drawing.main({5, -10, 0}, {5, 0, 0});
    drawing.main({5, 0, 0}, {0, 0, 0});
    drawing.main({5, 0, 0}, {10, 0, 0});
    drawing.main({0, 0, 0}, {0, 10, 0});
    drawing.main({0, 10, 0}, {10, 10, 0});
    const AcDbObjectId wide = drawing.main({10, 1.2, 0}, {10, 10, 0});
    ASSERT_EQ(search(tail, {5, -10, 0}), 1);
    EXPECT_EQ(parents(), (std::vector<int>{-1, 0, 0, 1, 3, 4}));
    drawing.erase(wide);
    drawing.main({10, 0.9, 0}, {10, 10, 0});
    EXPECT_EQ(search(tail, {5, -10, 0}), 0);
    EXPECT_EQ(count(), 6);
}

/// Six far ends within a unit, and one elsewhere. The order in which segments stand is that in
/// which they are told.
TEST_F(PressureLoopTest, SegmentsThatEndInOnePlaceAreToldInTheirOrder) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    for (const Mode mode : {Mode::kIndexed, Mode::kPlainScan}) {
        segs.RemoveAll();
        const auto search = collected(root, {}, mode);
        for (const double x : {10.0, 10.25, 50.0, 9.75, 10.5, 10.0, 9.5}) {
            PressureSeg ending;
            ending.startPoint = {0, 0, 0};
            ending.endPoint = {x, 0, 0};
            ending.reversed = 0;
            segs.Add(ending);
        }
        EXPECT_EQ(search->CheckNoLoops(), 0);
        EXPECT_EQ(search->LaterSegsEndingAt(0), (std::vector<int>{1, 3, 4, 5, 6}));
        EXPECT_EQ(search->LaterSegsEndingAt(1), (std::vector<int>{3, 4, 5, 6}));
        EXPECT_TRUE(search->LaterSegsEndingAt(2).empty());
        EXPECT_TRUE(search->LaterSegsEndingAt(6).empty());
    }
}

} // namespace module_tests
