#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class BlockRecord : public DrawingTest {
protected:
    /// Radius of a block with this text as its diameter, at the scale set before.
    double radiusFor(const wchar_t* diameter) {
        const AcDbObjectId id = drawing.addWell({0, 0, 0}, {.diameter = diameter});
        return _Block(id, L"", kSewer).radius;
    }
};

TEST_F(BlockRecord, DefaultsAreThoseOfTheTable) {
    const _Block block;
    EXPECT_TRUE(block.note.IsEmpty());
    EXPECT_TRUE(block.handle.IsEmpty());
    EXPECT_TRUE(samePoint(block.position, {0, 0, 0}, 0.0));
    EXPECT_EQ(block.rotation, 0.0);
    EXPECT_EQ(block.isSquareWell, 0);
    EXPECT_EQ(block.valid, 0);
    EXPECT_TRUE(block.extents.isEmpty());
    EXPECT_DOUBLE_EQ(block.radius, 0.5); // 500 / 1000
}

TEST_F(BlockRecord, DefaultRadiusIsThatOfAMetreWide) {
    drawing.setDrawScale(500.0);
    EXPECT_DOUBLE_EQ(_Block().radius, 1.0);
}

TEST_F(BlockRecord, DefaultRadiusFollowsTheScaleOfTheMoment) {
    const _Block before;
    drawing.setDrawScale(250.0);
    EXPECT_DOUBLE_EQ(before.radius, 0.5);
    EXPECT_DOUBLE_EQ(_Block().radius, 2.0);
}

TEST_F(BlockRecord, ReadsTheBlockReference) {
    drawing.defineLayer(L"井");
    const AcDbObjectId definition = drawing.defineBlock(L"VLT_WELL_05", {-1, -2, -3}, {1, 2, 3});
    auto* reference = new AcDbBlockReference({10, 20, 30}, definition);
    reference->setScaleFactors({2, 2, 2});
    reference->setRotation(kPi / 2);
    reference->setLayer(L"井");
    const AcDbObjectId id = drawing.addEntity(reference, {{L"井的直径", L"1.5"}});
    const _Block block(id, L"remark", kSewer);
    EXPECT_EQ(block.id, id);
    EXPECT_EQ(utf8(block.note), "remark");
    EXPECT_EQ(utf8(block.systemName), "污水");
    EXPECT_EQ(utf8(block.layer), "井");
    EXPECT_TRUE(samePoint(block.position, {10, 20, 30}, 0.0));
    EXPECT_EQ(block.scale.sx, 2.0);
    EXPECT_EQ(block.scale.sy, 2.0);
    EXPECT_EQ(block.scale.sz, 2.0);
    EXPECT_DOUBLE_EQ(block.rotation, kPi / 2);
    // Doubled and turned by a quarter, (+-1, +-2, +-3) reaches to (+-4, +-2, +-6).
    EXPECT_TRUE(samePoint(block.extents.minPoint(), {6, 18, 24}));
    EXPECT_TRUE(samePoint(block.extents.maxPoint(), {14, 22, 36}));
    EXPECT_EQ(block.isSquareWell, 0);
    EXPECT_EQ(block.valid, 1);
}

TEST_F(BlockRecord, HandleIsTheHexadecimalText) {
    const AcDbObjectId id = drawing.addWell({0, 0, 0});
    const _Block block(id, L"", kSewer);
    EXPECT_FALSE(block.handle.IsEmpty());
    EXPECT_EQ(drawing.byHandle(block.handle), id);
}

TEST_F(BlockRecord, RecordLeavesReferenceAndDefinitionClosed) {
    const _Block block(drawing.addWell({0, 0, 0}), L"", kSewer);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

TEST_F(BlockRecord, RadiusIsHalfTheDiameterInDrawingUnits) {
    drawing.setDrawScale(500.0);
    EXPECT_DOUBLE_EQ(radiusFor(L"1.5"), 1.5);
    drawing.setDrawScale(1000.0);
    EXPECT_DOUBLE_EQ(radiusFor(L"1.5"), 0.75);
}

TEST_F(BlockRecord, RadiusWithoutDiameterIsZeroAndNotTheDefault) {
    EXPECT_EQ(radiusFor(nullptr), 0.0);
}

TEST_F(BlockRecord, RadiusTakesTheNumericPrefixOfTheText) {
    EXPECT_DOUBLE_EQ(radiusFor(L"1.5m"), 0.75);
    EXPECT_DOUBLE_EQ(radiusFor(L"  2"), 1.0);
    EXPECT_DOUBLE_EQ(radiusFor(L"2e1x"), 10.0);
    EXPECT_DOUBLE_EQ(radiusFor(L"-1"), -0.5);
    EXPECT_EQ(radiusFor(L"wide"), 0.0);
    EXPECT_EQ(radiusFor(L""), 0.0);
    EXPECT_EQ(radiusFor(L"inf"), 0.0);
    EXPECT_EQ(radiusFor(L"0x10"), 0.0);
}

TEST_F(BlockRecord, TankHasItsSizeInItsExtentsAlone) {
    const AcDbObjectId id = drawing.addTank({100, 0, 0}, {130, 10, 5}, {.length = L"30000"});
    const _Block block(id, L"", L"");
    EXPECT_EQ(block.radius, 0.0);
    EXPECT_TRUE(samePoint(block.position, {115, 5, 2.5}));
    EXPECT_TRUE(samePoint(block.extents.minPoint(), {100, 0, 0}));
    EXPECT_TRUE(samePoint(block.extents.maxPoint(), {130, 10, 5}));
    EXPECT_TRUE(block.systemName.IsEmpty());
}

TEST_F(BlockRecord, DefinitionNamedForSquareWellsMakesASquareWell) {
    const AcDbObjectId id = drawing.addBlock({0, 0, 0}, L"VLT_WELL_04");
    EXPECT_EQ(_Block(id, L"", kSewer).isSquareWell, 1);
}

TEST_F(BlockRecord, DefinitionNameInOtherCaseIsNoSquareWell) {
    const AcDbObjectId id = drawing.addBlock({0, 0, 0}, L"vlt_well_04");
    EXPECT_EQ(_Block(id, L"", kSewer).isSquareWell, 0);
}

TEST_F(BlockRecord, LongerDefinitionNameIsNoSquareWell) {
    const AcDbObjectId id = drawing.addBlock({0, 0, 0}, L"VLT_WELL_04B");
    EXPECT_EQ(_Block(id, L"", kSewer).isSquareWell, 0);
}

TEST_F(BlockRecord, ReferenceWithoutDefinitionKeepsDefaultExtents) {
    const AcDbObjectId id =
        drawing.addEntity(new AcDbBlockReference({3, 4, 0}, AcDbObjectId::kNull));
    const _Block block(id, L"", kSewer);
    EXPECT_EQ(block.valid, 1);
    EXPECT_TRUE(samePoint(block.position, {3, 4, 0}, 0.0));
    EXPECT_TRUE(block.extents.isEmpty());
    EXPECT_EQ(block.isSquareWell, 0);
}

TEST_F(BlockRecord, EntityThatIsNoBlockKeepsOnlyItsTextsAndRadius) {
    const AcDbObjectId id = drawing.addPipe({5, 5, 0}, {9, 5, 0});
    drawing.setText(id, L"井的直径", L"2");
    const _Block block(id, L"remark", kSewer);
    EXPECT_EQ(block.valid, 0);
    EXPECT_EQ(block.id, id);
    EXPECT_EQ(utf8(block.note), "remark");
    EXPECT_DOUBLE_EQ(block.radius, 1.0);
    EXPECT_TRUE(block.handle.IsEmpty());
    EXPECT_TRUE(block.layer.IsEmpty());
    EXPECT_TRUE(samePoint(block.position, {0, 0, 0}, 0.0));
    EXPECT_TRUE(block.extents.isEmpty());
    EXPECT_EQ(block.isSquareWell, 0);
}

void expectNoReference(const _Block& block) {
    const AcGeScale3d unset;
    EXPECT_EQ(block.valid, 0);
    EXPECT_EQ(block.radius, 0.0);
    EXPECT_TRUE(block.handle.IsEmpty());
    EXPECT_TRUE(block.layer.IsEmpty());
    EXPECT_TRUE(samePoint(block.position, {0, 0, 0}, 0.0));
    EXPECT_EQ(block.scale.sx, unset.sx);
    EXPECT_EQ(block.scale.sy, unset.sy);
    EXPECT_EQ(block.scale.sz, unset.sz);
    EXPECT_EQ(block.rotation, 0.0);
    EXPECT_TRUE(block.extents.isEmpty());
    EXPECT_EQ(block.isSquareWell, 0);
}

TEST_F(BlockRecord, ScaleOfARecordThatReadNothingIsThatOfThePlatform) {
    const AcGeScale3d unset;
    EXPECT_EQ(_Block().scale.sx, unset.sx);
    EXPECT_EQ(_Block().scale.sy, unset.sy);
    EXPECT_EQ(_Block().scale.sz, unset.sz);
}

TEST_F(BlockRecord, ReferenceThatIsBeingWrittenLeavesTheDefaultsAndRadiusZero) {
    const AcDbObjectId id = drawing.addWell({3, 4, 0}, {.diameter = L"2", .square = true});
    AcDbBlockReference* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, id, AcDb::kForWrite), Acad::eOk);
    writer->setRotation(0.5);
    writer->setScaleFactors({2, 2, 2});
    expectNoReference(_Block(id, L"", kSewer));
    writer->close();
    EXPECT_EQ(_Block(id, L"", kSewer).valid, 1);
}

TEST_F(BlockRecord, ErasedReferenceLeavesTheDefaultsAndRadiusZero) {
    const AcDbObjectId id = drawing.addWell({3, 4, 0}, {.diameter = L"2", .square = true});
    drawing.erase(id);
    expectNoReference(_Block(id, L"", kSewer));
}

TEST_F(BlockRecord, DefinitionThatIsBeingWrittenMakesNoSquareWellOfAValidReference) {
    const AcDbObjectId id = drawing.addWell({3, 4, 0}, {.diameter = L"2", .square = true});
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, id, AcDb::kForRead), Acad::eOk);
    const AcDbObjectId definition = reference->blockTableRecord();
    reference->close();
    AcDbBlockTableRecord* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, definition, AcDb::kForWrite), Acad::eOk);
    const _Block block(id, L"", kSewer);
    writer->close();
    EXPECT_EQ(block.valid, 1);
    EXPECT_DOUBLE_EQ(block.radius, 1.0);
    EXPECT_TRUE(samePoint(block.position, {3, 4, 0}, 0.0));
    EXPECT_EQ(block.isSquareWell, 0);
    EXPECT_EQ(_Block(id, L"", kSewer).isSquareWell, 1);
}

TEST_F(BlockRecord, NullIdHasRadiusZero) {
    const _Block block(AcDbObjectId::kNull, L"", L"");
    EXPECT_EQ(block.valid, 0);
    EXPECT_EQ(block.radius, 0.0);
}

void expectSameBlock(const _Block& actual, const _Block& expected) {
    EXPECT_EQ(actual.id, expected.id);
    EXPECT_EQ(utf8(actual.layer), utf8(expected.layer));
    EXPECT_EQ(utf8(actual.systemName), utf8(expected.systemName));
    EXPECT_EQ(actual.valid, expected.valid);
    EXPECT_EQ(utf8(actual.note), utf8(expected.note));
    EXPECT_EQ(utf8(actual.handle), utf8(expected.handle));
    EXPECT_TRUE(samePoint(actual.position, expected.position, 0.0));
    EXPECT_EQ(actual.scale.sx, expected.scale.sx);
    EXPECT_EQ(actual.scale.sy, expected.scale.sy);
    EXPECT_EQ(actual.scale.sz, expected.scale.sz);
    EXPECT_TRUE(samePoint(actual.extents.minPoint(), expected.extents.minPoint(), 0.0));
    EXPECT_TRUE(samePoint(actual.extents.maxPoint(), expected.extents.maxPoint(), 0.0));
    EXPECT_EQ(actual.rotation, expected.rotation);
    EXPECT_EQ(actual.radius, expected.radius);
    EXPECT_EQ(actual.isSquareWell, expected.isSquareWell);
}

class BlockCopy : public BlockRecord {
protected:
    BlockCopy()
        : block_(drawing.addWell({1, 2, 3}, {.diameter = L"3", .square = true}), L"note", kStorm) {
        block_.scale.set(2, 3, 4);
        block_.rotation = 0.25;
    }

    _Block block_;
};

TEST_F(BlockCopy, CopyConstructorCopiesEveryField) {
    _Block copy(block_);
    expectSameBlock(copy, block_);
}

TEST_F(BlockCopy, AssignmentCopiesEveryField) {
    _Block assigned;
    assigned = block_;
    expectSameBlock(assigned, block_);
}

TEST_F(BlockCopy, EmptyExtentsStayEmptyInCopies) {
    block_.extents = AcDbExtents();
    _Block copy(block_);
    _Block assigned(drawing.addWell({0, 0, 0}), L"", kSewer);
    assigned = block_;
    EXPECT_TRUE(copy.extents.isEmpty());
    EXPECT_TRUE(assigned.extents.isEmpty());
}

TEST_F(BlockCopy, SelfAssignmentChangesNothing) {
    _Block before(block_);
    const _Block& same = block_;
    block_ = same;
    expectSameBlock(block_, before);
}

} // namespace
} // namespace module_tests
