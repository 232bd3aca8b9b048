#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class WellRecord : public DrawingTest {
protected:
    /// A node with every field of its own set and one block merged into it.
    void fill(Well& well) {
        const AcDbObjectId id =
            drawing.addWell({1, 2, 3}, {.diameter = L"3", .system = kStorm, .square = true});
        static_cast<_Block&>(well) = _Block(id, L"note", kStorm);
        well.isWell = 0;
        well.nodeEntity = id;
        well.nodePoint.set(4, 5, 6);
        well.mergedEntities.append(drawing.addWell({2, 2, 0}));
        well.nodeRadius = 2.5;
        well.outSegs.Add(7);
        well.outSegs.Add(8);
        well.inSeg = 9;
        well.number = L"W12";
        well.extraList.Add(41);
        well.extraPoint[0] = 51;
        well.extraPoint[1] = 52;
        well.extraPoint[2] = 53;
    }
};

/// All that a copy takes over.
void expectCopied(const Well& actual, const Well& expected) {
    EXPECT_EQ(actual.id, expected.id);
    EXPECT_EQ(utf8(actual.systemName), utf8(expected.systemName));
    EXPECT_EQ(utf8(actual.note), utf8(expected.note));
    EXPECT_EQ(utf8(actual.handle), utf8(expected.handle));
    EXPECT_EQ(actual.valid, expected.valid);
    EXPECT_EQ(actual.radius, expected.radius);
    EXPECT_EQ(actual.isSquareWell, expected.isSquareWell);
    EXPECT_TRUE(samePoint(actual.extents.minPoint(), expected.extents.minPoint(), 0.0));
    EXPECT_TRUE(samePoint(actual.extents.maxPoint(), expected.extents.maxPoint(), 0.0));
    EXPECT_EQ(actual.isWell, expected.isWell);
    EXPECT_EQ(actual.nodeEntity, expected.nodeEntity);
    EXPECT_TRUE(samePoint(actual.nodePoint, expected.nodePoint, 0.0));
    EXPECT_EQ(actual.nodeRadius, expected.nodeRadius);
    EXPECT_EQ(intsOf(actual.outSegs), intsOf(expected.outSegs));
    EXPECT_EQ(actual.inSeg, expected.inSeg);
    EXPECT_EQ(utf8(actual.number), utf8(expected.number));
    EXPECT_EQ(intsOf(actual.extraList), intsOf(expected.extraList));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(actual.extraPoint[i], expected.extraPoint[i]);
    }
}

TEST_F(WellRecord, DefaultsAreThoseOfTheTable) {
    drawing.setDrawScale(500.0);
    const Well well;
    EXPECT_EQ(well.isWell, 1);
    EXPECT_TRUE(well.nodeEntity.isNull());
    EXPECT_TRUE(samePoint(well.nodePoint, {0, 0, 0}, 0.0));
    EXPECT_EQ(well.mergedEntities.length(), 0);
    EXPECT_EQ(well.mergedEntities.physicalLength(), 0);
    EXPECT_EQ(well.mergedEntities.growLength(), 8);
    EXPECT_EQ(well.nodeRadius, 0.0);
    EXPECT_EQ(well.outSegs.GetSize(), 0);
    EXPECT_EQ(well.inSeg, -1);
    EXPECT_TRUE(well.number.IsEmpty());
    EXPECT_EQ(well.extraList.GetSize(), 0);
    for (const double value : well.extraPoint) {
        EXPECT_EQ(value, 0.0);
    }
    EXPECT_DOUBLE_EQ(well.radius, 1.0); // 500 / 500
}

TEST_F(WellRecord, CopyConstructorCopiesAllButTheMergedBlocks) {
    Well well;
    fill(well);
    Well copy(well);
    expectCopied(copy, well);
    EXPECT_EQ(copy.mergedEntities.length(), 0);
    EXPECT_EQ(well.mergedEntities.length(), 1);
}

TEST_F(WellRecord, AssignmentLeavesTheMergedBlocksOfTheTarget) {
    Well well;
    fill(well);
    Well target;
    const AcDbObjectId own = drawing.addWell({50, 50, 0});
    target.mergedEntities.append(own);
    target = well;
    expectCopied(target, well);
    EXPECT_EQ(idsOf(target.mergedEntities), Ids{own});
}

TEST_F(WellRecord, AssignmentReplacesTheListsOfTheTarget) {
    Well well;
    fill(well);
    Well target;
    for (int i = 0; i < 5; ++i) {
        target.outSegs.Add(100 + i);
        target.extraList.Add(200 + i);
    }
    target = well;
    EXPECT_EQ(intsOf(target.outSegs), (std::vector<int>{7, 8}));
    EXPECT_EQ(intsOf(target.extraList), std::vector<int>{41});
}

TEST_F(WellRecord, SelfAssignmentChangesNothing) {
    Well well;
    fill(well);
    Well before(well);
    const Ids merged = idsOf(well.mergedEntities);
    const Well& same = well;
    well = same;
    expectCopied(well, before);
    EXPECT_EQ(idsOf(well.mergedEntities), merged);
}

TEST_F(WellRecord, AssigningABlockOverItLeavesTheNodeFields) {
    Well well;
    fill(well);
    const AcDbObjectId other = drawing.addWell({70, 0, 0}, {.diameter = L"5"});
    static_cast<_Block&>(well) = _Block(other, L"", kSewer);
    EXPECT_EQ(well.id, other);
    EXPECT_DOUBLE_EQ(well.radius, 2.5); // half of 5 metres at one unit a metre
    EXPECT_EQ(well.isSquareWell, 0);
    EXPECT_TRUE(samePoint(well.nodePoint, {4, 5, 6}, 0.0));
    EXPECT_EQ(well.inSeg, 9);
    EXPECT_EQ(well.mergedEntities.length(), 1);
}

TEST_F(WellRecord, ArrayAddsACopyWithoutMergedBlocks) {
    Well well;
    fill(well);
    CArray<Well, Well&> wells;
    wells.Add(well);
    expectCopied(wells.GetAt(0), well);
    EXPECT_EQ(wells.GetAt(0).mergedEntities.length(), 0);
}

TEST_F(WellRecord, MergedBlocksOfANodeOutliveTheGrowthOfItsArray) {
    CArray<Well, Well&> wells;
    Well first;
    wells.Add(first);
    const AcDbObjectId merged = drawing.addWell({2, 2, 0});
    wells.ElementAt(0).mergedEntities.append(merged);
    for (int i = 0; i < 100; ++i) {
        Well other;
        wells.Add(other);
    }
    EXPECT_EQ(idsOf(wells.GetAt(0).mergedEntities), Ids{merged});
}

} // namespace
} // namespace module_tests
