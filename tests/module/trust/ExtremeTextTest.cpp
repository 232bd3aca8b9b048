// Texts that are no sensible numbers: no number at all, too large for one, below zero. "nan" and
// "inf" have no numeric prefix and read as 0, "1e400" reads as infinite, and as the integer 1.

#include "module/trust/BothWays.h"

#include <limits>

namespace module_tests {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

using ExtremeTextTest = DrawingTest;

TEST_F(ExtremeTextTest, AFarWellIsReachedWithARadiusAboveZero) {
    // Without size, or below none, no end is nearer to a well than its reach. With an infinite one,
    // or one of 5e8, the far well merges into the root at once.
    struct Case {
        const wchar_t* diameter;
        int result;
        int merged;
    };
    for (const Case& each :
         {Case{L"1", 1, 0}, Case{L"nan", 0, 0}, Case{L"inf", 0, 0}, Case{L"", 0, 0},
          Case{L"x1", 0, 0}, Case{L"0", 0, 0}, Case{L"-1", 0, 0}, Case{L"1e-320", 1, 0},
          Case{L"1e-400", 0, 0}, Case{L"1e400", 0, 1}, Case{L"-1e400", 0, 0}, Case{L"1e9", 0, 1}}) {
        drawing.startAnew();
        const ShortSewer sewer = addShortSewer(drawing, {}, {.diameter = each.diameter});
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, sewer.first), each.result) << utf8(each.diameter);
        EXPECT_EQ(network.wells.GetSize(), 1 + each.result) << utf8(each.diameter);
        EXPECT_EQ(network.wells[0].mergedEntities.length(), each.merged) << utf8(each.diameter);
    }
}

TEST_F(ExtremeTextTest, ARootIsLeftThroughWhatTouchesIt) {
    // The reach of a root without size is ten millimetres, in which the pipe begins; below zero it
    // is none. An infinite root takes the far well into itself.
    struct Case {
        const wchar_t* diameter;
        int result;
    };
    for (const Case& each :
         {Case{L"nan", 1}, Case{L"inf", 1}, Case{L"", 1}, Case{L"0", 1}, Case{L"1e-400", 1},
          Case{L"-0.001", 1}, Case{L"-1", 0}, Case{L"-1e400", 0}, Case{L"1e400", 0}}) {
        drawing.startAnew();
        const ShortSewer sewer = addShortSewer(drawing, {.diameter = each.diameter});
        GravitySearchObject network;
        EXPECT_EQ(searchSewer(network, sewer.first), each.result) << utf8(each.diameter);
    }
}

TEST_F(ExtremeTextTest, AMainInAWellIsInReachOfAllThatTheWellHolds) {
    // Of the two mains the second begins 5 behind the first: within a well of diameter 10 about the
    // joint, or of an infinite one anywhere.
    struct Case {
        const wchar_t* diameter;
        int pipes; ///< in the one run that comes out
    };
    for (const Case& each : {Case{L"10", 2}, Case{L"1e400", 2}, Case{L"1", 1}, Case{L"nan", 1},
                             Case{L"inf", 1}, Case{L"", 1}, Case{L"-10", 1}, Case{L"-1e400", 1}}) {
        drawing.startAnew();
        const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
        drawing.addPipe({65, 0, 0}, {90, 0, 0}, {.system = kSupply});
        drawing.addWell({60, 0, 0}, {.diameter = each.diameter, .system = kSupply});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main), 1);
        ASSERT_EQ(segs.GetSize(), 1);
        EXPECT_EQ(segs[0].pipeIds.length(), each.pipes) << utf8(each.diameter);
    }
}

TEST_F(ExtremeTextTest, AMeterLiesOnAMainWithinItsRadius) {
    struct Case {
        const wchar_t* diameter;
        double aside; ///< of the main
        int meters;
    };
    for (const Case& each :
         {Case{L"1", 0.5, 1}, Case{L"1", 0.6, 0}, Case{L"nan", 0, 1}, Case{L"nan", 0.001, 0},
          Case{L"", 0, 1}, Case{L"-1", 0, 0}, Case{L"1e400", 1e9, 1}, Case{L"-1e400", 0, 0}}) {
        drawing.startAnew();
        const AcDbObjectId main = drawing.addPipe({0, 0, 0}, {60, 0, 0}, {.system = kSupply});
        drawing.addBlock({30, each.aside, 0}, L"VLT_WELL_15",
                         {{L"管井系统", kSupply}, {L"井的直径", each.diameter}});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main), 1);
        EXPECT_EQ(segs[0].meterIds.length(), each.meters) << utf8(each.diameter) << each.aside;
    }
}

TEST_F(ExtremeTextTest, EndsAreMovedToWellsOfASizeAboveZero) {
    drawing.setLengthMode(1);
    // Both ends lie in an infinite well, and then neither moves.
    struct Case {
        const wchar_t* diameter;
        double start; ///< x of the main's start, drawn at 0.1
    };
    for (const Case& each : {Case{L"1", 0}, Case{L"nan", 0.1}, Case{L"", 0.1}, Case{L"-1", 0.1},
                             Case{L"1e400", 0.1}, Case{L"-1e400", 0.1}}) {
        drawing.startAnew();
        const AcDbObjectId main = drawing.addPipe({0.1, 0, 0}, {60, 0, 0}, {.system = kSupply});
        drawing.addWell({0, 0, 0}, {.diameter = each.diameter, .system = kSupply});
        PressureSegs segs;
        EXPECT_EQ(searchMain(segs, main), 1);
        EXPECT_EQ(segs[0].startPoint.x, each.start) << utf8(each.diameter);
    }
}

/// What numbers a pipe gets from its texts.
struct Numbers {
    const wchar_t* text;
    int integer;
    double number;
};

const Numbers kNumbers[] = {{L"nan", 0, 0.0},
                            {L"inf", 0, 0.0},
                            {L"", 0, 0.0},
                            {L"1e400", 1, kInfinity},
                            {L"-1e400", -1, -kInfinity},
                            {L"-300", -300, -300.0},
                            {L"99999999999", 2147483647, 99999999999.0},
                            {L"-99999999999", -2147483647 - 1, -99999999999.0},
                            {L"1e-400", 1, 0.0},
                            {L"0x1A", 0, 0.0}};

PipeTexts textsWith(const wchar_t* system, const wchar_t* number) {
    return {.system = system,
            .diameter = number,
            .flow = L"SE",
            .slope = number,
            .startElevation = number,
            .endElevation = number};
}

template<class Segment>
void expectNumbers(const Segment& seg, const Numbers& expected) {
    SCOPED_TRACE(utf8(expected.text));
    EXPECT_EQ(seg.diameter, expected.integer);
    EXPECT_EQ(seg.slope, expected.number);
    EXPECT_EQ(seg.startElevation, expected.number);
    EXPECT_EQ(seg.endElevation, expected.number);
}

TEST_F(ExtremeTextTest, SegmentsCarryWhatTheTextsReadAs) {
    for (const Numbers& each : kNumbers) {
        drawing.startAnew();
        const ShortSewer sewer = addShortSewer(drawing, {}, {}, textsWith(kSewer, each.text));
        const AcDbObjectId main =
            drawing.addPipe({0, 50, 0}, {60, 50, 0}, textsWith(kSupply, each.text));
        GravitySearchObject network;
        ASSERT_EQ(searchSewer(network, sewer.first), 1);
        expectNumbers(network.segs[0], each);
        PressureSegs segs;
        ASSERT_EQ(searchMain(segs, main), 1);
        expectNumbers(segs[0], each);
        Seg single;
        EXPECT_EQ(GetSingleSeg(single, sewer.pipe), 1);
        expectNumbers(single.gravity, each);
        Seg ofMain;
        EXPECT_EQ(GetSingleSeg(ofMain, main), 1);
        expectNumbers(ofMain.pressure, each);
    }
}

/// Three wells in a row and the pipes between them, with heights from 10 to 9 and from 9 to 8.
class ExtremeLoweringTest : public DrawingTest {
protected:
    void layRow(const wchar_t* firstStart, const wchar_t* firstEnd,
                const wchar_t* diameter = L"0") {
        drawing.startAnew();
        for (const double x : {0.0, 20.0, 40.0}) {
            drawing.addWell({x, 0, 0});
        }
        first = drawing.addPipe({0, 0, 0}, {20, 0, 0},
                                {.diameter = diameter,
                                 .flow = L"SE",
                                 .startElevation = firstStart,
                                 .endElevation = firstEnd});
        second = drawing.addPipe(
            {20, 0, 0}, {40, 0, 0},
            {.diameter = diameter, .flow = L"SE", .startElevation = L"9", .endElevation = L"8"});
    }

    void expectHeights(AcDbObjectId pipe, const wchar_t* start, const wchar_t* end) {
        EXPECT_EQ(textOf(pipe, L"起点标高"), start);
        EXPECT_EQ(textOf(pipe, L"终点标高"), end);
    }

    AcDbObjectId first;
    AcDbObjectId second;
};

TEST_F(ExtremeLoweringTest, NoNumbersAreLoweredFromZero) {
    // The well reached through the first pipe's start is the root; the first pipe's heights were 0
    // there, above the limit of -2: they sink to it. Then the second, to the next limit of -2.
    for (const wchar_t* text : {L"nan", L"inf", L"", L"-nan"}) {
        layRow(text, text);
        EXPECT_EQ(LowerHeightForCollideTest(first, 2.0), 1);
        expectHeights(first, L"-2", L"-2");
        // 8 sinks by 10 to -2, and 9 to -1.
        expectHeights(second, L"-2", L"-1");
    }
}

TEST_F(ExtremeLoweringTest, AnInfiniteHeightStaysAndStopsTheLowering) {
    layRow(L"1e400", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(first, 2.0), 1);
    // The limit is infinite, and nothing lies above that. What was written reads as 0 from now on.
    expectHeights(first, L"inf", L"7");
    expectHeights(second, L"9", L"8");
    EXPECT_EQ(LowerHeightForCollideTest(first, 0.0), 1);
    expectHeights(first, L"0", L"7");
}

TEST_F(ExtremeLoweringTest, AnInfiniteDropTakesAllThatFollowsDown) {
    layRow(L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(first, kInfinity), 1);
    expectHeights(first, L"-inf", L"-inf");
    expectHeights(second, L"-inf", L"-inf");
}

TEST_F(ExtremeLoweringTest, AnInfiniteRiseLiftsThePipeAlone) {
    layRow(L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(first, -kInfinity), 1);
    expectHeights(first, L"inf", L"inf");
    expectHeights(second, L"9", L"8");
}

TEST_F(ExtremeLoweringTest, ADropThatIsNoNumberSpoilsThePipeAlone) {
    for (const bool isDrop : {true, false}) {
        // No number as the drop, or infinite less infinite.
        layRow(isDrop ? L"10" : L"1e400", isDrop ? L"9" : L"1e400");
        EXPECT_EQ(LowerHeightForCollideTest(first, isDrop ? std::numeric_limits<double>::quiet_NaN()
                                                          : kInfinity),
                  1);
        EXPECT_NE(textOf(first, L"起点标高").find(L"nan"), std::wstring::npos);
        // Nothing is above a limit that is no number.
        expectHeights(second, L"9", L"8");
        // And it reads as 0 from now on.
        EXPECT_EQ(LowerHeightForCollideTest(first, 0.0), 1);
        EXPECT_EQ(textOf(first, L"起点标高"), L"0");
    }
}

TEST_F(ExtremeLoweringTest, HeightsKeepSixDigitsHoweverLarge) {
    layRow(L"1e300", L"-1e300");
    EXPECT_EQ(LowerHeightForCollideTest(first, 1.0), 1);
    // The lower height, -1e300, is below the limit of 1e300.
    expectHeights(first, L"1e+300", L"-1e+300");
    expectHeights(second, L"9", L"8");
}

TEST_F(ExtremeLoweringTest, ADiameterBelowZeroLowersTheTops) {
    // Tops are heights less 5 metres for both pipes, so the diameter falls out of the comparison:
    // the limit is 8 - 5, the first pipe's lower top 9 - 5 sinks by 1, and so its higher one, to 9
    // - 5, which is the next limit. The second pipe's lower top, 8 - 5, lies below.
    layRow(L"10", L"9", L"-5000");
    EXPECT_EQ(LowerHeightForCollideTest(first, 2.0), 1);
    expectHeights(first, L"8", L"9");
    expectHeights(second, L"9", L"8");
}

TEST_F(ExtremeLoweringTest, TheLargestDiameterIsLargeAndNoMore) {
    // 2,147,483,647 millimetres over heights of metres: all comparisons are as before.
    layRow(L"10", L"9", L"99999999999");
    EXPECT_EQ(LowerHeightForCollideTest(first, 2.0), 1);
    expectHeights(first, L"8", L"9");
    expectHeights(second, L"9", L"8");
}

} // namespace
} // namespace module_tests
