// Meters and valves go to the segments that they lie on.

#include "module/pressure/PressureTest.h"

#include <cmath>

namespace module_tests {

namespace {

class AttachWellsTest : public PressureTest {
protected:
    AcDbObjectId pipe() { return drawing.main({0, 0, 0}, {10, 0, 0}); }
    /// The upper half of the circle about (0, 0) with radius 10, from (10, 0).
    AcDbObjectId arc() { return drawing.arc({10, 0, 0}, {-10, 0, 0}, 1.0); }

    void run(AcDbObjectId picked, const AcGePoint3d& at = {}) { ASSERT_EQ(search(picked, at), 1); }
    Ids meters(int index) { return idsOf(seg(index).meterIds); }
    Ids valves(int index) { return idsOf(seg(index).valveIds); }
};

} // namespace

TEST_F(AttachWellsTest, BlockNameTellsMetersAndValves) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId meter = drawing.meter({3, 0, 0});
    const AcDbObjectId valve = drawing.valve({7, 0.25, 0});
    run(picked);
    EXPECT_EQ(meters(0), Ids{meter});
    EXPECT_EQ(valves(0), Ids{valve});
    EXPECT_TRUE(samePoint(seg(0).meterPoints.GetAt(0), {3, 0, 0}, 0));
    EXPECT_TRUE(samePoint(seg(0).valvePoints.GetAt(0), {7, 0.25, 0}, 0)) << "the well's position";
}

TEST_F(AttachWellsTest, KindsMayFollowOneAnotherInAnyOrder) {
    const AcDbObjectId picked = pipe();
    Ids drawnMeters;
    Ids drawnValves;
    for (const double x : {1.0, 3.0, 5.0, 7.0}) {
        drawnMeters.push_back(drawing.meter({x, 0, 0}));
        drawing.fitting({x, 0, 0}, L"VLT_WELL_01");
        drawnValves.push_back(drawing.valve({x + 1.0, 0, 0}));
        drawnValves.push_back(drawing.valve({x + 1.5, 0, 0}));
    }
    run(picked);
    EXPECT_EQ(meters(0), drawnMeters);
    EXPECT_EQ(valves(0), drawnValves);
}

TEST_F(AttachWellsTest, BlocksOfOtherNamesAreNotRecorded) {
    const AcDbObjectId picked = pipe();
    for (const wchar_t* name : {L"VLT_WELL_04", L"VLT_WELL_01", L"VLT_WELL_150", L"VLT_WELL_1"}) {
        drawing.fitting({5, 0, 0}, name);
    }
    run(picked);
    EXPECT_TRUE(meters(0).empty());
    EXPECT_TRUE(valves(0).empty());
}

TEST_F(AttachWellsTest, NameComparesExactly) {
    const AcDbObjectId picked = pipe();
    drawing.fitting({5, 0, 0}, L"vlt_well_15");
    drawing.fitting({6, 0, 0}, L"Vlt_Well_05");
    run(picked);
    EXPECT_TRUE(meters(0).empty());
    EXPECT_TRUE(valves(0).empty());
}

/// The definition's own spelling counts, not the one by which the reference found it.
TEST_F(AttachWellsTest, NameIsTheDefinitionsOwnSpelling) {
    const AcDbObjectId picked = pipe();
    drawing.fitting({50, 50, 0}, L"VLT_WELL_15");
    const AcDbObjectId meter = drawing.fitting({5, 0, 0}, L"vlt_well_15");
    run(picked);
    EXPECT_EQ(meters(0), Ids{meter});
}

TEST_F(AttachWellsTest, EntityThatIsNoBlockIsNoFitting) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId line = drawing.addEntity(new AcDbLine({5, 0, 0}, {6, 0, 0}));
    drawing.setText(line, L"管井系统", kSupply);
    run(picked);
    EXPECT_TRUE(meters(0).empty());
    EXPECT_TRUE(valves(0).empty());
}

TEST_F(AttachWellsTest, StraightSegmentTakesTheRimAndTheMargin) {
    const double reach = 0.5 + 0.0001;
    const AcDbObjectId picked = pipe();
    const AcDbObjectId atReach = drawing.meter({3, reach, 0});
    drawing.meter({4, std::nextafter(reach, 1.0), 0});
    const AcDbObjectId beyondTheEnd = drawing.valve({10.5, 0, 0});
    drawing.valve({10.5002, 0, 0});
    run(picked);
    EXPECT_EQ(meters(0), Ids{atReach});
    EXPECT_EQ(valves(0), Ids{beyondTheEnd});
}

/// Below the start (10, 0) the distance to the arc is that to the start.
TEST_F(AttachWellsTest, ArcExcludesTheRimAndHasNoMargin) {
    const AcDbObjectId picked = arc();
    drawing.meter({10, -0.5, 0});
    const AcDbObjectId inside = drawing.meter({10, std::nextafter(-0.5, 0.0), 0});
    run(picked, {10, 0, 0});
    EXPECT_EQ(meters(0), Ids{inside});
}

TEST_F(AttachWellsTest, ArcIsFollowedAndNotItsChord) {
    const AcDbObjectId picked = arc();
    drawing.valve({5, 0, 0});
    const AcDbObjectId onArc = drawing.valve({6, 8, 0}, L"0.001");
    run(picked, {10, 0, 0});
    EXPECT_EQ(valves(0), Ids{onArc});
}

TEST_F(AttachWellsTest, WellWithoutADiameterIsTakenByAStraightSegmentOnly) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId near = drawing.meter({3, 0.00009, 0}, nullptr);
    drawing.meter({4, 0.00011, 0}, nullptr);
    run(picked);
    EXPECT_EQ(meters(0), Ids{near});

    const AcDbObjectId round = drawing.arc({60, 0, 0}, {40, 0, 0}, 1.0);
    drawing.meter({60, 0, 0}, nullptr);
    run(round, {60, 0, 0});
    EXPECT_TRUE(meters(0).empty());
}

TEST_F(AttachWellsTest, SystemOfAFittingDoesNotMatter) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId meter = drawing.meter({3, 0, 0}, L"1", kSewer);
    const AcDbObjectId valve = drawing.valve({4, 0, 0}, L"1", L"");
    run(picked);
    EXPECT_EQ(meters(0), Ids{meter});
    EXPECT_EQ(valves(0), Ids{valve});
}

TEST_F(AttachWellsTest, NearerToTheBeginStandsFirstWhateverTheDrawing) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId far = drawing.meter({8, 0, 0});
    const AcDbObjectId near = drawing.meter({2, 0, 0});
    const AcDbObjectId middle = drawing.meter({5, 0, 0});
    run(picked);
    EXPECT_EQ(meters(0), (Ids{near, middle, far}));
    run(picked, {10, 0, 0});
    EXPECT_EQ(meters(0), (Ids{far, middle, near}));
}

TEST_F(AttachWellsTest, AtOneDistanceTheDrawingOrderCounts) {
    const AcDbObjectId picked = pipe();
    const AcDbObjectId first = drawing.valve({5, -0.25, 0});
    const AcDbObjectId second = drawing.valve({5, 0.25, 0});
    run(picked);
    EXPECT_EQ(valves(0), (Ids{first, second}));
}

TEST_F(AttachWellsTest, WellAtANodeGoesToTheLowerIndexOnly) {
    const AcDbObjectId picked = pipe();
    drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId node = drawing.valve({10, 0, 0});
    const AcDbObjectId upper = drawing.valve({10, 0.6, 0});
    run(picked);
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(valves(0), Ids{node});
    EXPECT_EQ(valves(1), Ids{upper});
}

TEST_F(AttachWellsTest, PlacedAndForeignWellsLeaveThePool) {
    const AcDbObjectId picked = pipe();
    drawing.meter({5, 0, 0});
    drawing.well({5, 0, 0});
    const AcDbObjectId away = drawing.valve({5, 50, 0});
    const auto search = prepared(picked);
    search->BuildSegments();
    EXPECT_EQ(search->AttachWells(), 1);
    ASSERT_EQ(search->wellPool.Size(), 3);
    EXPECT_FALSE(search->wellPool.Has(0));
    EXPECT_FALSE(search->wellPool.Has(1));
    ASSERT_TRUE(search->wellPool.Has(2));
    EXPECT_EQ(search->wellPool[2].id, away);
    EXPECT_EQ(utf8(search->wellPool[2].note), "VLT_WELL_05");
}

/// The line of a merged run spans it, from the far end to the begin point; the order is still from
/// the begin point.
TEST_F(AttachWellsTest, MergedRunTakesWellsAllAlong) {
    const AcDbObjectId picked = pipe();
    drawing.main({10, 0, 0}, {20, 0, 0});
    const AcDbObjectId far = drawing.meter({18, 0, 0});
    const AcDbObjectId near = drawing.meter({2, 0, 0});
    run(picked);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(meters(0), (Ids{near, far}));
}

/// Of a run that was turned round, the begin point is the far end.
TEST_F(AttachWellsTest, TurnedRunCountsFromItsFarEnd) {
    const AcDbObjectId picked = drawing.main({10, 0, 0}, {0, 0, 0});
    drawing.main({10, 0, 0}, {20, 0, 0});
    const AcDbObjectId near = drawing.meter({2, 0, 0});
    const AcDbObjectId far = drawing.meter({15, 0, 0});
    run(picked);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(meters(0), (Ids{far, near}));
}

TEST_F(AttachWellsTest, MergedArcTakesWellsAllAlong) {
    const double quarter = std::tan(kPi / 8.0);
    const AcDbObjectId picked = drawing.arc({10, 0, 0}, {0, 10, 0}, quarter);
    drawing.arc({0, 10, 0}, {-10, 0, 0}, quarter);
    const AcDbObjectId far = drawing.valve({-8, 6, 0});
    const AcDbObjectId near = drawing.valve({8, 6, 0});
    run(picked, {10, 0, 0});
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(valves(0), (Ids{near, far}));
}

/// In the other length modes the well at the joint has taken the pipe ends, and lies on both.
TEST_F(AttachWellsTest, LengthModesChangeNothingForAFittingOnTheRun) {
    const AcDbObjectId picked = pipe();
    drawing.main({10, 0, 0}, {10, 10, 0});
    const AcDbObjectId joint = drawing.meter({10.25, 0, 0});
    for (const int mode : {0, 1, 2}) {
        drawing.setLengthMode(mode);
        run(picked);
        ASSERT_EQ(count(), 2);
        EXPECT_EQ(meters(0), Ids{joint}) << mode;
        EXPECT_TRUE(meters(1).empty()) << mode;
    }
}

} // namespace module_tests
