#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <cstring>
#include <memory>
#include <new>

namespace module_tests {
namespace {

class SegmentRecord : public DrawingTest {
protected:
    /// Every field differs from its default and from every other.
    void fill(GravitySeg& seg) {
        for (double x = 0; x < 3; ++x) {
            seg.pipeIds.append(drawing.addPipe({x, 0, 0}, {x, 5, 0}));
        }
        seg.startWell = 3;
        seg.endWell = 4;
        seg.startPoint.set(1, 2, 3);
        seg.endPoint.set(4, 5, 6);
        seg.startEntity = drawing.addWell({0, 0, 0});
        seg.endEntity = drawing.addWell({9, 0, 0});
        seg.startElevation = 7.5;
        seg.endElevation = 8.5;
        seg.slope = 0.003;
        seg.diameter = 300;
        seg.flowText = L"SE";
        seg.material = L"HDPE";
        seg.systemName = kStorm;
        seg.extraValue1 = 11;
        seg.extraValue2 = 12;
        seg.extraValue3 = 13;
        seg.extraValue4 = 14;
        seg.extraValue5 = 15;
        seg.flowReversed = 0;
        seg.length = 21.5;
        seg.annotatePoint.set(2, 3, 4);
        seg.annotateVector.set(0, 1, 0);
    }
};

void expectSameSegment(const GravitySeg& actual, const GravitySeg& expected) {
    EXPECT_EQ(idsOf(actual.pipeIds), idsOf(expected.pipeIds));
    EXPECT_EQ(actual.startWell, expected.startWell);
    EXPECT_EQ(actual.endWell, expected.endWell);
    EXPECT_TRUE(samePoint(actual.startPoint, expected.startPoint, 0.0));
    EXPECT_TRUE(samePoint(actual.endPoint, expected.endPoint, 0.0));
    EXPECT_EQ(actual.startEntity, expected.startEntity);
    EXPECT_EQ(actual.endEntity, expected.endEntity);
    EXPECT_EQ(actual.startElevation, expected.startElevation);
    EXPECT_EQ(actual.endElevation, expected.endElevation);
    EXPECT_EQ(actual.slope, expected.slope);
    EXPECT_EQ(actual.diameter, expected.diameter);
    EXPECT_EQ(utf8(actual.flowText), utf8(expected.flowText));
    EXPECT_EQ(utf8(actual.material), utf8(expected.material));
    EXPECT_EQ(utf8(actual.systemName), utf8(expected.systemName));
    EXPECT_EQ(actual.extraValue1, expected.extraValue1);
    EXPECT_EQ(actual.extraValue2, expected.extraValue2);
    EXPECT_EQ(actual.extraValue3, expected.extraValue3);
    EXPECT_EQ(actual.extraValue4, expected.extraValue4);
    EXPECT_EQ(actual.extraValue5, expected.extraValue5);
    EXPECT_EQ(actual.flowReversed, expected.flowReversed);
    EXPECT_EQ(actual.length, expected.length);
    EXPECT_TRUE(samePoint(actual.annotatePoint, expected.annotatePoint, 0.0));
    EXPECT_TRUE(sameVector(actual.annotateVector, expected.annotateVector, 0.0));
}

TEST_F(SegmentRecord, DefaultsAreThoseOfTheTable) {
    const GravitySeg seg;
    EXPECT_EQ(seg.pipeIds.length(), 0);
    EXPECT_EQ(seg.pipeIds.physicalLength(), 0);
    EXPECT_EQ(seg.pipeIds.growLength(), 8);
    EXPECT_EQ(seg.startWell, -1);
    EXPECT_EQ(seg.endWell, -1);
    EXPECT_TRUE(samePoint(seg.startPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(seg.startEntity.isNull());
    EXPECT_TRUE(seg.endEntity.isNull());
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_EQ(seg.endElevation, 0.0);
    EXPECT_EQ(seg.slope, 0.0);
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.material.IsEmpty());
    EXPECT_TRUE(seg.systemName.IsEmpty());
    EXPECT_EQ(seg.extraValue1, 0.0);
    EXPECT_EQ(seg.extraValue2, 0.0);
    EXPECT_EQ(seg.extraValue3, 0.0);
    EXPECT_EQ(seg.extraValue5, 0.0);
    EXPECT_EQ(seg.flowReversed, 1);
    EXPECT_EQ(seg.length, 0.0);
    EXPECT_TRUE(samePoint(seg.annotatePoint, {0, 0, 0}, 0.0));
    EXPECT_TRUE(sameVector(seg.annotateVector, {0, 0, 0}, 0.0));
}

TEST_F(SegmentRecord, ConstructorLeavesTheFourthExtraValueAsItFindsIt) {
    constexpr int pattern = 0x5A;
    alignas(GravitySeg) unsigned char storage[sizeof(GravitySeg)];
    std::memset(storage, pattern, sizeof storage);
    auto* seg = new (storage) GravitySeg;
    const auto place = reinterpret_cast<unsigned char*>(&seg->extraValue4) - storage;
    unsigned char found[sizeof(double)];
    std::memcpy(found, storage + place, sizeof found);
    std::destroy_at(seg);
    for (const unsigned char byte : found) {
        EXPECT_EQ(byte, pattern);
    }
}

TEST_F(SegmentRecord, CopyConstructorCopiesEveryField) {
    GravitySeg seg;
    fill(seg);
    GravitySeg copy(seg);
    expectSameSegment(copy, seg);
    EXPECT_EQ(copy.extraValue4, 14.0);
}

TEST_F(SegmentRecord, AssignmentCopiesEveryField) {
    GravitySeg seg;
    fill(seg);
    GravitySeg assigned;
    assigned = seg;
    expectSameSegment(assigned, seg);
    EXPECT_EQ(assigned.extraValue4, 14.0);
}

TEST_F(SegmentRecord, CopiesDoNotShareTheirPipes) {
    GravitySeg seg;
    fill(seg);
    GravitySeg copy(seg);
    copy.pipeIds.removeAt(0);
    EXPECT_EQ(seg.pipeIds.length(), 3);
    EXPECT_EQ(copy.pipeIds.length(), 2);
}

TEST_F(SegmentRecord, AssignmentOfFewerPipesKeepsTheRoom) {
    GravitySeg large;
    fill(large);
    const int room = large.pipeIds.physicalLength();
    GravitySeg small;
    small.pipeIds.append(drawing.addPipe({0, 9, 0}, {5, 9, 0}));
    small.extraValue4 = 0;
    large = small;
    EXPECT_EQ(idsOf(large.pipeIds), idsOf(small.pipeIds));
    EXPECT_EQ(large.pipeIds.physicalLength(), room);
}

TEST_F(SegmentRecord, AssignmentToItselfChangesNothing) {
    GravitySeg seg;
    fill(seg);
    GravitySeg before(seg);
    GravitySeg& same = seg;
    seg = same;
    expectSameSegment(seg, before);
}

TEST_F(SegmentRecord, ArrayElementKeepsEveryField) {
    GravitySeg seg;
    fill(seg);
    CArray<GravitySeg, GravitySeg&> segs;
    segs.Add(seg);
    for (int i = 0; i < 20; ++i) { // so that the array takes new storage
        GravitySeg other;
        other.extraValue4 = 0;
        segs.Add(other);
    }
    expectSameSegment(segs.GetAt(0), seg);
}

} // namespace
} // namespace module_tests
