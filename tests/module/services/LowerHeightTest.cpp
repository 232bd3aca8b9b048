// Lowering a pipe that has a well or tank at both ends of its stretch, and what cannot be lowered.

#include "TKVltSearchModule18.h"

#include "module/services/LoweringTest.h"
#include "module/support/AllocatedBytes.h"
#include "records/XdataKeys.h"

namespace module_tests {
namespace {

/// Water runs from left to right. P is the one that is lowered: its start is at A, so the search
/// begins there, and Q and R are what follows.
///
///   B o<---P---o A ---Q--->o C ---R--->o D       P is drawn from A to B with "ES"
///  -100        0          100         200
class LowerHeightTest : public LoweringTest {
protected:
    LowerHeightTest() {
        for (const double x : {-100.0, 0.0, 100.0, 200.0}) {
            const AcDbObjectId id = drawing.addWell({x, 0, 0});
            well = x == 0.0 ? id : well;
        }
    }

    void drawPicked() { p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"10", L"11"); }
    void drawFirst(const wchar_t* start, const wchar_t* end, const wchar_t* flow = L"SE") {
        q = pipe({0, 0, 0}, {100, 0, 0}, flow, start, end);
    }
    void drawSecond(const wchar_t* start, const wchar_t* end) {
        r = pipe({100, 0, 0}, {200, 0, 0}, L"SE", start, end);
    }

    AcDbObjectId well; ///< A
    AcDbObjectId p;
    AcDbObjectId q;
    AcDbObjectId r;
};

// Both heights of P sink by 1.5. The start is at A: the limit there is 8.5 + 1.
TEST_F(LowerHeightTest, PipeSinksByTheDropAndTheNextByItsExcess) {
    drawPicked();
    drawFirst(L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    // Tops 10 and 11 against 9.5: heights 8.5 and 9.5. Q fell along its flow, from 10 to 9; the
    // lower height now stands at its start.
    EXPECT_EQ(heights(q), (HeightTexts{"8.5", "9.5"}));
}

// Behind Q the limit is 9.5 + 1, from its higher height. R with a low top of 10.5 stays, though it
// is above the lower top of Q; with 12 and 13 it sinks by 1.5.
TEST_F(LowerHeightTest, LimitBehindASegmentComesFromItsHigherHeight) {
    drawPicked();
    drawFirst(L"10", L"9");
    drawSecond(L"10", L"9.5");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    expectUnchanged(r);
}

TEST_F(LowerHeightTest, LoweringTravelsFromWellToWell) {
    drawPicked();
    drawFirst(L"10", L"9");
    drawSecond(L"12", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(r), (HeightTexts{"9.5", "10.5"}));
}

TEST_F(LowerHeightTest, PipeThatCannotBeWrittenStaysAndTheNextSinksAllTheSame) {
    drawPicked();
    drawFirst(L"10", L"9");
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, p, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    reader->close();
    expectUnchanged(p);
    EXPECT_EQ(heights(q), (HeightTexts{"8.5", "9.5"}));
}

TEST_F(LowerHeightTest, OnlyTheOwnStretchChangesWhereTheNextIsLowEnough) {
    drawPicked();
    drawFirst(L"9", L"8"); // low top 9, limit 9.5
    drawSecond(L"12", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(q);
    expectUnchanged(r);
}

TEST_F(LowerHeightTest, LowTopAtTheLimitEndsTheBranch) {
    drawPicked();
    drawFirst(L"10", L"8.5"); // low top 9.5, limit 9.5
    drawSecond(L"12", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    expectUnchanged(q);
    expectUnchanged(r);
}

TEST_F(LowerHeightTest, SegmentWhoseWaterRunsAgainstTheWalkIsSkipped) {
    drawPicked();
    drawFirst(L"30", L"29", L"ES");
    drawSecond(L"12", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    expectUnchanged(q);
    expectUnchanged(r);
}

// P 2 m below: limit 9. The branch to the north has tops 9.5 and 10.5, that to the east a low top
// of 9.
TEST_F(LowerHeightTest, BothSegmentsOfAWellAreHeldAgainstTheSameLimit) {
    drawPicked();
    drawing.addWell({0, 100, 0});
    const AcDbObjectId north = pipe({0, 0, 0}, {0, 100, 0}, L"SE", L"9.5", L"8.5");
    drawFirst(L"9", L"8");
    EXPECT_EQ(LowerHeightForCollideTest(p, 2.0), 1);
    EXPECT_EQ(heights(north), (HeightTexts{"8", "9"}));
    expectUnchanged(q);
}

// The first pipe in the drawing speaks for the segment: heights 10 and 9, tops 10 and 11 against
// 9.5.
TEST_F(LowerHeightTest, PipeAgainstTheOthersGetsTheTextsExchanged) {
    drawPicked();
    q = pipe({0, 0, 0}, {30, 0, 0}, L"SE", L"10", L"9");
    const AcDbObjectId middle = pipe({60, 0, 0}, {30, 0, 0}, L"ES", L"7", L"7");
    const AcDbObjectId last = pipe({60, 0, 0}, {100, 0, 0}, L"SE", L"7", L"7");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(q), (HeightTexts{"8.5", "9.5"}));
    EXPECT_EQ(heights(middle), (HeightTexts{"9.5", "8.5"}));
    EXPECT_EQ(heights(last), (HeightTexts{"8.5", "9.5"}));
}

// The stretch of P is P itself and one more pipe, drawn the other way with other heights and
// another direction; both get what P is lowered to, key by key.
TEST_F(LowerHeightTest, PickedStretchIsWrittenWithoutRegardToDirection) {
    p = pipe({0, 0, 0}, {-50, 0, 0}, L"ES", L"10", L"11");
    const AcDbObjectId other = pipe({-100, 0, 0}, {-50, 0, 0}, L"SE", L"20", L"19");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    EXPECT_EQ(heights(other), (HeightTexts{"8.5", "9.5"}));
}

// With "SE" the water runs away from A along P, so the propagation meets P too, at the heights that
// it had before: the search ran first. Heights 9 and 10, limit 8 + 1: tops 10 and 11 sink by 1.
TEST_F(LowerHeightTest, PropagationMeetsThePickedStretchWhereTheWaterRunsAlongIt) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"SE", L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(p, 2.0), 1);
    // Lowered to 8 and 7, then written again with 8 and 9.
    EXPECT_EQ(heights(p), (HeightTexts{"8", "9"}));
}

TEST_F(LowerHeightTest, NothingButHeightsChanges) {
    drawPicked();
    drawFirst(L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    for (const AcDbObjectId& id : {p, q}) {
        _Pipe curve(id, CString());
        EXPECT_TRUE(samePoint(curve.startPoint, {0, 0, 0}, 0.0));
        EXPECT_TRUE(samePoint(curve.endPoint, {id == p ? -100.0 : 100.0, 0, 0}, 0.0));
        EXPECT_EQ(utf8(XdataText(id, L"管道系统")), "污水");
        EXPECT_EQ(utf8(XdataText(id, L"管径")), "1000");
        EXPECT_EQ(utf8(XdataText(id, L"水流方向")), id == p ? "ES" : "SE");
    }
    EXPECT_EQ(utf8(XdataText(well, L"管井系统")), "污水");
    EXPECT_EQ(utf8(XdataText(well, L"井的直径")), "1");
    EXPECT_EQ(heights(well), (HeightTexts{"", ""}));
}

TEST_F(LowerHeightTest, NegativeDropRaisesThePipeAndLeavesTheOthers) {
    drawPicked();
    drawFirst(L"10", L"9");
    EXPECT_EQ(LowerHeightForCollideTest(p, -2.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"12", "13"}));
    expectUnchanged(q);
}

TEST_F(LowerHeightTest, DropOfZeroRewritesTheTexts) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"10.50", L" 011m");
    EXPECT_EQ(LowerHeightForCollideTest(p, 0.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"10.5", "11"}));
}

TEST_F(LowerHeightTest, MissingTextsCountAsZero) {
    p = remembered(drawing.addPipe({0, 0, 0}, {-100, 0, 0}));
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.25), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"-1.25", "-1.25"}));
}

TEST_F(LowerHeightTest, SixDigitsOfAHeightLast) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"123.4567", L"1234.567");
    EXPECT_EQ(LowerHeightForCollideTest(p, 0.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"123.457", "1234.57"}));
}

// Each time 1234.556 and so back to 1234.56: a hundred drops of 0.004 sink the pipe by nothing at
// all after the first rounding. 99.996, 99.992 ... keep their digits.
TEST_F(LowerHeightTest, LossOfDigitsAddsUpOverRepeatedLowering) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"1234.56", L"100");
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(LowerHeightForCollideTest(p, 0.004), 1);
    }
    EXPECT_EQ(heights(p), (HeightTexts{"1234.56", "99.6"}));
}

// ISO C writes two digits of an exponent where two do. 2e-05 less 1e-05 is 1e-05 to the last bit.
TEST_F(LowerHeightTest, ExponentsHaveTwoDigits) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"0.00002", L"1234567");
    EXPECT_EQ(LowerHeightForCollideTest(p, 0.00001), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"1e-05", "1.23457e+06"}));
}

// The limit is formed from 9.9999951, not from the text "10": the low top of Q, 10.999998, is above
// it, while it would not be above 11. Q comes out with 9.9999951 too.
TEST_F(LowerHeightTest, LimitComesFromTheNumberAndNotFromItsText) {
    p = pipe({0, 0, 0}, {-100, 0, 0}, L"ES", L"9.9999951", L"11");
    drawFirst(L"9.999998", L"9.999998");
    EXPECT_EQ(LowerHeightForCollideTest(p, 0.0), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"10", "11"}));
    EXPECT_EQ(heights(q), (HeightTexts{"10", "10"}));
}

TEST_F(LowerHeightTest, PressurePipeGivesZeroAndChangesNothing) {
    p = remembered(drawing.addPipe(
        {0, 0, 0}, {-100, 0, 0},
        {.system = kSupply, .flow = L"ES", .startElevation = L"10", .endElevation = L"11"}));
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

TEST_F(LowerHeightTest, UnknownSystemGivesZeroAndChangesNothing) {
    for (const wchar_t* system : {L"燃气", L"", static_cast<const wchar_t*>(nullptr)}) {
        p = remembered(drawing.addPipe(
            {0, 0, 0}, {-100, 0, 0},
            {.system = system, .flow = L"ES", .startElevation = L"10", .endElevation = L"11"}));
        EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    }
    EXPECT_EQ(LowerHeightForCollideTest(AcDbObjectId(), 1.5), 0);
    expectNothingChanged();
}

TEST_F(LowerHeightTest, GravityPipeWithoutAnyWellGivesZeroAndChangesNothing) {
    p = pipe({0, 900, 0}, {-100, 900, 0}, L"ES", L"10", L"11");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

// Two ways from A to C close a circle, which no search accepts; the stretch is written only after
// it.
TEST_F(LowerHeightTest, SearchThatFailsLeavesAStretchBetweenTwoWellsAsItWas) {
    drawPicked();
    drawFirst(L"30", L"29");
    pipe({0, 0, 0}, {50, 50, 0}, L"SE", L"30", L"29");
    drawing.addWell({50, 50, 0});
    pipe({50, 50, 0}, {100, 0, 0}, L"SE", L"30", L"29");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

// The network that is searched for each time is not kept. With a drop of nothing the drawing stays
// the same, so nothing else need grow either.
TEST_F(LowerHeightTest, NetworkThatWasSearchedIsGivenBack) {
    drawPicked();
    drawFirst(L"8", L"7");
    const auto lower = [&](int times) {
        for (int i = 0; i < times; ++i) {
            ASSERT_EQ(LowerHeightForCollideTest(p, 0.0), 1);
        }
    };
    lower(20);
    const std::size_t before = allocatedBytes();
    constexpr int times = 200;
    lower(times);
    const auto grown = static_cast<long long>(allocatedBytes()) - static_cast<long long>(before);
    EXPECT_LT(grown, static_cast<long long>(times * sizeof(GravitySearchObject)))
        << "not even the bare objects";
}

class LowerAtTankTest : public LoweringTest {
protected:
    /// A tank about the origin, where the search begins, with a pipe to each side.
    void draw(const wchar_t* tankSystem) {
        drawing.addTank({-5, -5, 0}, {5, 5, 0}, {.system = tankSystem});
        drawing.addWell({-100, 0, 0});
        drawing.addWell({100, 0, 0});
        p = pipe({-5, 0, 0}, {-100, 0, 0}, L"ES", L"10", L"11");
        q = pipe({5, 0, 0}, {100, 0, 0}, L"SE", L"30", L"29");
    }

    AcDbObjectId p;
    AcDbObjectId q;
};

TEST_F(LowerAtTankTest, LoweringGoesOnFromATank) {
    draw(kSewer);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    EXPECT_EQ(heights(q), (HeightTexts{"8.5", "9.5"}));
}

// The search then succeeds without a network.
TEST_F(LowerAtTankTest, TankOfAnUnknownSystemLowersTheStretchAlone) {
    draw(L"燃气");
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 1);
    EXPECT_EQ(heights(p), (HeightTexts{"8.5", "9.5"}));
    expectUnchanged(q);
}

TEST_F(LowerAtTankTest, TankWithoutASystemGivesZeroAndChangesNothing) {
    draw(nullptr);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

// A tank of a pressure system is a target of the stretch, but no pressure search starts at it.
TEST_F(LowerAtTankTest, TankOfAPressureSystemGivesZeroAndChangesNothing) {
    draw(kSupply);
    EXPECT_EQ(LowerHeightForCollideTest(p, 1.5), 0);
    expectNothingChanged();
}

} // namespace
} // namespace module_tests
