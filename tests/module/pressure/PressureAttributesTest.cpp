// What a segment of the walk takes from its first pipe.

#include "module/pressure/PressureTest.h"
#include "TKVltSearchModule18.h"

namespace module_tests {

namespace {

const PipeTexts kHigh = {.startElevation = L"9.5", .endElevation = L"6.25"};

/// Reaches the reading of one segment: an explicit instantiation may name what is private.
using ReadAttributes = int (tkvlt::PressureNetworkSearch::*)(PressureSeg&);
ReadAttributes readAttributesMember();
template<ReadAttributes member>
struct ReadAttributesAccess {
    friend ReadAttributes readAttributesMember() { return member; }
};
template struct ReadAttributesAccess<&tkvlt::PressureNetworkSearch::ReadSegAttributes>;

class PressureAttributesTest : public PressureTest {
protected:
    void expectHeights(int index, double begin, double far) {
        EXPECT_EQ(seg(index).startElevation, begin) << "segment " << index;
        EXPECT_EQ(seg(index).endElevation, far) << "segment " << index;
    }
};

} // namespace

TEST_F(PressureAttributesTest, TextsAreReadByTheirNumericPrefix) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0},
                                             {.diameter = L"300.5mm",
                                              .flow = L"se",
                                              .slope = L"0.003x",
                                              .startElevation = L" 9.5 m",
                                              .endElevation = L"deep",
                                              .material = L"球墨铸铁"});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(seg(0).diameter, 300);
    EXPECT_EQ(utf8(seg(0).flowText), "se");
    EXPECT_EQ(seg(0).slope, 0.003);
    expectHeights(0, 9.5, 0.0);
    EXPECT_EQ(utf8(seg(0).material), "球墨铸铁");
    EXPECT_EQ(utf8(seg(0).systemName), "给水");
}

TEST_F(PressureAttributesTest, MissingTextsAreZeroOrEmpty) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(search(picked, {0, 0, 0}), 1);
    EXPECT_EQ(seg(0).diameter, 0);
    EXPECT_EQ(seg(0).slope, 0.0);
    expectHeights(0, 0.0, 0.0);
    EXPECT_TRUE(seg(0).flowText.IsEmpty());
    EXPECT_TRUE(seg(0).material.IsEmpty());
    EXPECT_EQ(utf8(seg(0).systemName), "给水");
}

TEST_F(PressureAttributesTest, HeightsFollowTheWalkWhateverTheFlow) {
    for (const wchar_t* flow : {L"SE", L"ES", L""}) {
        PipeTexts texts = kHigh;
        texts.flow = flow;
        const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0}, texts);
        ASSERT_EQ(search(picked, {0, 0, 0}), 1);
        expectHeights(0, 9.5, 6.25);
        ASSERT_EQ(search(picked, {10, 0, 0}), 1);
        expectHeights(0, 6.25, 9.5);
        drawing.erase(picked);
    }
}

TEST_F(PressureAttributesTest, HeightsOfAChildBeginWhereTheWalkCame) {
    const AcDbObjectId root = drawing.main({0, 0, 0}, {10, 0, 0});
    drawing.main({10, 0, 0}, {10, 10, 0}, kHigh);
    drawing.main({10, -10, 0}, {10, 0, 0}, kHigh);
    ASSERT_EQ(search(root, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    expectHeights(1, 9.5, 6.25);
    expectHeights(2, 6.25, 9.5);
}

/// Both pieces have the whole entity's heights, nothing in between. Of the second piece the begin
/// point (10, 0) lies nearer to the entity's start, (20, 0) nearer to its end.
TEST_F(PressureAttributesTest, PiecesKeepTheHeightsOfTheWholeEntity) {
    const AcDbObjectId cut = drawing.main({0, 0, 0}, {30, 0, 0}, kHigh);
    const AcDbObjectId near = drawing.main({10, 0, 0}, {10, 10, 0});
    ASSERT_EQ(search(cut, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    expectHeights(0, 9.5, 6.25);
    EXPECT_TRUE(samePoint(seg(2).startPoint, {10, 0, 0}));
    expectHeights(2, 9.5, 6.25);

    drawing.erase(near);
    drawing.main({20, 0, 0}, {20, 10, 0});
    ASSERT_EQ(search(cut, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    expectHeights(0, 9.5, 6.25);
    EXPECT_TRUE(samePoint(seg(2).startPoint, {20, 0, 0}));
    expectHeights(2, 6.25, 9.5);
}

/// The walk came to the picked pipe at (10, 0), its end as drawn. As one run with the second pipe
/// it is turned round, so that its begin point lies nearer to the pipe's start then.
TEST_F(PressureAttributesTest, HeightsOfATurnedRunAreThoseFromBeforeItWasTurned) {
    const AcDbObjectId first = drawing.main({0, 0, 0}, {10, 0, 0}, kHigh);
    drawing.main({-10, 0, 0}, {0, 0, 0});
    ASSERT_EQ(search(first, {10, 0, 0}), 1);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(samePoint(seg(0).GetBeginPoint(), {-10, 0, 0}));
    expectHeights(0, 6.25, 9.5);
}

/// Entry 0 was there before with entry 1 as its only child and takes it in as the walk begins, so
/// that the root moves up to its place.
TEST_F(PressureAttributesTest, EachHasItsOwnWhereAnEntryInFrontIsMergedAway) {
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0}, {.diameter = L"100"});
    drawing.main({120, 0, 0}, {120, 10, 0}, {.diameter = L"200"});
    for (int i = 0; i < 2; ++i) {
        PressureSeg old;
        old.startPoint = {100 + 10.0 * i, 0, 0};
        old.endPoint = {110 + 10.0 * i, 0, 0};
        old.line.set(old.startPoint, old.endPoint);
        old.systemName = kSupply;
        old.diameter = 7;
        segs.Add(old);
    }
    segs.ElementAt(0).children.Add(1);
    ASSERT_EQ(GetPressureNetwork(segs, picked, {0, 0, 0}, rootSeg), 1);
    ASSERT_EQ(count(), 3);
    EXPECT_EQ(seg(0).diameter, 7);
    EXPECT_EQ(seg(1).diameter, 100);
    EXPECT_EQ(seg(2).diameter, 200);
}

TEST_F(PressureAttributesTest, BeginPointMidwayCountsAsTheEntitysEnd) {
    const AcDbObjectId cut = drawing.main({0, 0, 0}, {30, 0, 0}, kHigh);
    drawing.main({15, 0, 0}, {15, 10, 0});
    ASSERT_EQ(search(cut, {0, 0, 0}), 1);
    ASSERT_EQ(count(), 3);
    expectHeights(0, 9.5, 6.25);
    expectHeights(2, 6.25, 9.5);
}

TEST_F(PressureAttributesTest, PipeThatCannotBeOpenedHasNoValuesAndTheSystem) {
    PipeTexts texts = kHigh;
    texts.diameter = L"200";
    texts.material = L"PE";
    const AcDbObjectId picked = drawing.main({0, 0, 0}, {10, 0, 0}, texts);
    drawing.main({10, 0, 0}, {10, 10, 0}, texts);
    const auto search = prepared(picked);
    AcDbObject* writer = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(writer, picked, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(search->BuildSegments(), 1);
    writer->close();
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(seg(0).diameter, 0);
    expectHeights(0, 0.0, 0.0);
    EXPECT_TRUE(seg(0).material.IsEmpty());
    EXPECT_EQ(utf8(seg(0).systemName), "给水");
    EXPECT_EQ(seg(1).diameter, 200) << "the walk went on";
    expectHeights(1, 9.5, 6.25);
}

/// Flow and material are the segment's own texts and stay; the numbers are those of empty texts.
TEST_F(PressureAttributesTest, FlowAndMaterialThatThePipeDoesNotCarryStayAsTheyAre) {
    const AcDbObjectId bare = drawing.main({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId told =
        drawing.main({0, 50, 0}, {10, 50, 0}, {.flow = L"ES", .material = L"PE"});
    const auto search = collected(bare);
    PressureSeg read;
    read.flowText = L"SE";
    read.material = L"PVC";
    read.diameter = 7;
    read.pipeIds.append(bare);
    EXPECT_EQ((search.get()->*readAttributesMember())(read), 1);
    EXPECT_EQ(utf8(read.flowText), "SE");
    EXPECT_EQ(utf8(read.material), "PVC");
    EXPECT_EQ(read.diameter, 0);
    read.pipeIds.setAt(0, told);
    EXPECT_EQ((search.get()->*readAttributesMember())(read), 1);
    EXPECT_EQ(utf8(read.flowText), "ES");
    EXPECT_EQ(utf8(read.material), "PE");
}

TEST_F(PressureAttributesTest, SegmentWithoutPipesStaysAsItIs) {
    const auto search = collected(drawing.main({0, 0, 0}, {10, 0, 0}, kHigh));
    PressureSeg none;
    none.diameter = 7;
    none.startElevation = 3.5;
    none.systemName = L"as it was";
    EXPECT_EQ((search.get()->*readAttributesMember())(none), 1);
    EXPECT_EQ(none.diameter, 7);
    EXPECT_EQ(none.startElevation, 3.5);
    EXPECT_EQ(utf8(none.systemName), "as it was");
}

} // namespace module_tests
