// The propagation by itself, on networks made by hand over pipes of a drawing.

#include "services/PropagateLowering.h"

#include "module/services/LoweringTest.h"
#include "module/services/MemoryNetwork.h"

#include <pthread.h>

namespace module_tests {
namespace {

class PropagateLoweringTest : public LoweringTest {
protected:
    using Links = std::vector<std::pair<int, int>>;

    /// Empty heights to begin with; a test sets them.
    void build(int wells, const Links& links) {
        fillNetwork(network, wells, links);
        for (int i = 0; i < static_cast<int>(links.size()); ++i) {
            network.segs[i].pipeIds.removeAll();
            network.segs[i].flowReversed = 0;
            network.segs[i].diameter = 1000;
        }
    }

    /// One more pipe of a segment, with texts that show whether it is written.
    AcDbObjectId addPipe(int seg, const wchar_t* flow = L"SE") {
        const double y = 10.0 * ++count;
        const AcDbObjectId id = pipe({0, y, 0}, {50, y, 0}, flow, L"s", L"e");
        network.segs[seg].pipeIds.append(id);
        return id;
    }

    void setHeights(int seg, double low, double high) {
        network.segs[seg].startElevation = low;
        network.segs[seg].endElevation = high;
    }

    void propagate(double limit, int well = 0) {
        EXPECT_EQ(tkvlt::PropagateLowering(network, well, limit), 1);
    }

    GravitySearchObject network;
    int count = 0;
};

/// A well with one segment to a second one, and one segment behind that.
class TwoSegments : public PropagateLoweringTest {
protected:
    TwoSegments() {
        build(3, {{0, 1}, {1, 2}});
        first = addPipe(0);
        second = addPipe(1);
    }

    AcDbObjectId first;
    AcDbObjectId second;
};

// Tops 10 and 11, limit 9.5, so the excess is 0.5: tops 9.5 and 10.5, heights 8.5 and 9.5.
TEST_F(TwoSegments, SegmentSinksByItsExcessOverTheLimit) {
    setHeights(0, 9.0, 10.0);
    propagate(9.5);
    EXPECT_EQ(heights(first), (HeightTexts{"8.5", "9.5"}));
}

// Were the limit behind formed from the lower height, 9.5, the second would sink as well.
TEST_F(TwoSegments, NextLimitIsTheHigherTop) {
    setHeights(0, 9.0, 10.0);
    setHeights(1, 9.5, 9.75); // low top 10.5, exactly the limit
    propagate(9.5);
    EXPECT_EQ(heights(first), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(second);
}

// Limit behind the first 10.5; tops 11 and 13 sink by 0.5.
TEST_F(TwoSegments, LoweringGoesOnBehindTheFarWell) {
    setHeights(0, 9.0, 10.0);
    setHeights(1, 10.0, 12.0);
    propagate(9.5);
    EXPECT_EQ(heights(second), (HeightTexts{"9.5", "11.5"}));
}

// A high top of 20 alone does not matter.
TEST_F(TwoSegments, LowerHeightDecides) {
    setHeights(0, 8.0, 19.0);
    setHeights(1, 30.0, 30.0);
    propagate(9.5);
    expectNothingChanged();
}

TEST_F(TwoSegments, LowTopAtTheLimitStaysAndNothingBehindIsVisited) {
    setHeights(0, 8.5, 10.0);
    setHeights(1, 30.0, 31.0);
    propagate(9.5);
    expectNothingChanged();
}

TEST_F(TwoSegments, ReversedFlowIsSkippedWithWhatIsBehind) {
    setHeights(0, 20.0, 21.0);
    setHeights(1, 30.0, 31.0);
    network.segs[0].flowReversed = 1;
    propagate(9.5);
    expectNothingChanged();
}

TEST_F(TwoSegments, AnyFlowReversedButZeroIsSkipped) {
    setHeights(0, 20.0, 21.0);
    network.segs[0].flowReversed = -1;
    propagate(9.5);
    expectNothingChanged();
}

TEST_F(TwoSegments, BeginsAtTheWellThatIsAsked) {
    setHeights(0, 20.0, 21.0);
    setHeights(1, 30.0, 31.0);
    propagate(9.5, 1);
    expectUnchanged(first);
    EXPECT_EQ(heights(second), (HeightTexts{"8.5", "9.5"}));
}

TEST_F(TwoSegments, RecordsInMemoryStayAsTheyWere) {
    setHeights(0, 9.0, 10.0);
    setHeights(1, 19.0, 20.0);
    propagate(9.5);
    EXPECT_EQ(network.segs[0].startElevation, 9.0);
    EXPECT_EQ(network.segs[0].endElevation, 10.0);
    EXPECT_EQ(network.segs[1].startElevation, 19.0);
    EXPECT_EQ(network.segs[1].endElevation, 20.0);
}

// 300 mm: tops 10.3 and 11.3, limit 10.05, excess 0.25.
TEST_F(TwoSegments, DiameterCountsInMillimetres) {
    setHeights(0, 10.0, 11.0);
    network.segs[0].diameter = 300;
    propagate(10.05);
    EXPECT_EQ(heights(first), (HeightTexts{"9.75", "10.75"}));
}

TEST_F(TwoSegments, WellWithoutSegmentsEndsTheBranch) {
    setHeights(0, 20.0, 21.0);
    propagate(9.5, 2);
    expectNothingChanged();
}

// Tops 11 and 12, limit 10: heights 9 and 10 for every pipe; whose key has which is the pipe's.
TEST_F(PropagateLoweringTest, PipesOfASegmentGetTheSameTextsByTheirOwnDirection) {
    build(2, {{0, 1}});
    const AcDbObjectId along = addPipe(0, L"SE");
    const AcDbObjectId against = addPipe(0, L"ES");
    const AcDbObjectId last = addPipe(0, L"SE");
    setHeights(0, 10.0, 11.0);
    propagate(10.0);
    EXPECT_EQ(heights(along), (HeightTexts{"9", "10"}));
    EXPECT_EQ(heights(against), (HeightTexts{"10", "9"}));
    EXPECT_EQ(heights(last), (HeightTexts{"9", "10"}));
}

// A pipe without the text stands behind one with "SE", whose text must not last.
TEST_F(PropagateLoweringTest, AnyOtherFlowTextCountsAsAgainst) {
    build(2, {{0, 1}});
    addPipe(0, L"SE");
    setHeights(0, 10.0, 11.0);
    Ids others;
    for (const wchar_t* flow : {static_cast<const wchar_t*>(nullptr), L"", L"se", L"SE "}) {
        others.push_back(addPipe(0, flow));
    }
    propagate(10.0);
    for (const AcDbObjectId& other : others) {
        EXPECT_EQ(heights(other), (HeightTexts{"10", "9"}));
    }
}

// Under the root: segment 0 sinks (tops 12 and 13 to 10 and 11), so segment 2 behind it is held
// against 11; segment 1 is held against the root's 10 all the same, and stays with a low top of 10.
// Segment 3, top 10.5, sinks to 10.
TEST_F(PropagateLoweringTest, SegmentsOfAWellShareItsLimit) {
    build(5, {{0, 1}, {0, 2}, {1, 3}, {0, 4}});
    Ids pipes;
    for (int seg = 0; seg < 4; ++seg) {
        pipes.push_back(addPipe(seg));
    }
    setHeights(0, 11.0, 12.0);
    setHeights(1, 9.0, 30.0);
    setHeights(2, 10.5, 10.5);
    setHeights(3, 9.5, 9.5);
    propagate(10.0);
    EXPECT_EQ(heights(pipes[0]), (HeightTexts{"9", "10"}));
    expectUnchanged(pipes[1]);
    EXPECT_EQ(heights(pipes[2]), (HeightTexts{"10", "10"}));
    EXPECT_EQ(heights(pipes[3]), (HeightTexts{"9", "9"}));
}

constexpr int kDepth = 100000;
constexpr std::size_t kSmallStack = std::size_t{256} << 10;

void* propagateOnSmallStack(void* argument) {
    tkvlt::PropagateLowering(*static_cast<GravitySearchObject*>(argument), 0, 5.0);
    return nullptr;
}

// All heights are the same, so each segment hands the first limit on to the next.
TEST_F(PropagateLoweringTest, DepthOfTheNetworkCostsNoStack) {
    Links links;
    for (int i = 0; i < kDepth; ++i) {
        links.emplace_back(i, i + 1);
    }
    build(kDepth + 1, links);
    for (int i = 0; i < kDepth; ++i) {
        setHeights(i, 10.0, 10.0);
    }
    const AcDbObjectId last = addPipe(kDepth - 1);
    pthread_attr_t attributes;
    pthread_t thread{};
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
    ASSERT_EQ(pthread_create(&thread, &attributes, propagateOnSmallStack, &network), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(heights(last), (HeightTexts{"4", "4"}));
}

} // namespace
} // namespace module_tests
