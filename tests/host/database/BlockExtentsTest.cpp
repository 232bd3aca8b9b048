#include "host/database/DatabaseFixture.h"

#include "database/AcDbArc.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbCircle.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbUnknownEntity.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

class BlockExtentsTest : public DatabaseFixture {
protected:
    static std::unique_ptr<AcDbBlockReference> reference(AcDbObjectId block,
                                                         const AcGePoint3d& at = {}) {
        return std::make_unique<AcDbBlockReference>(at, block);
    }

    static std::unique_ptr<AcDbLine> line(const AcGePoint3d& start, const AcGePoint3d& end) {
        return std::make_unique<AcDbLine>(start, end);
    }

    static AcDbExtents boxOf(const AcDbBlockReference& reference) {
        AcDbExtents box;
        EXPECT_EQ(reference.geomExtentsBestFit(box), Acad::eOk);
        return box;
    }
};

TEST_F(BlockExtentsTest, BasePointScaleAndTurn) {
    const AcDbObjectId block = addBlock(L"B", {1.0, 1.0, 0.0});
    addTo(block, line({1.0, 1.0, 0.0}, {3.0, 2.0, 0.0}));
    AcDbBlockReference placed({10.0, 20.0, 5.0}, block);
    placed.setScaleFactors({2.0, 3.0, 1.0});
    expectBox(boxOf(placed), {10.0, 20.0, 5.0}, {14.0, 23.0, 5.0});
    placed.setRotation(kPi / 2.0);
    expectBox(boxOf(placed), {7.0, 20.0, 5.0}, {10.0, 24.0, 5.0});
}

TEST_F(BlockExtentsTest, TheGivenTransformComesLast) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, line({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
    AcGeMatrix3d twice;
    twice.setToScaling(2.0);
    AcDbExtents box;
    ASSERT_EQ(reference(block, {10.0, 0.0, 0.0})->geomExtentsBestFit(box, twice), Acad::eOk);
    expectBox(box, {20.0, 0.0, 0.0}, {22.0, 2.0, 0.0});
}

TEST_F(BlockExtentsTest, ArcsCountWithTheirTrueExtents) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, std::make_unique<AcDbArc>(AcGePoint3d(), 1.0, kPi / 4.0, 3.0 * kPi / 4.0));
    const double half = std::sqrt(0.5);
    expectBox(boxOf(*reference(block)), {-half, half, 0.0}, {half, 1.0, 0.0});
    AcDbBlockReference turned({}, block);
    turned.setRotation(kPi / 4.0);
    expectBox(boxOf(turned), {-1.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
}

TEST_F(BlockExtentsTest, AnUnevenlyScaledCircleIsAnEllipse) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d(0.0, 0.0, 1.0), 1.0));
    AcDbBlockReference placed({}, block);
    placed.setScaleFactors({2.0, 1.0, 1.0});
    placed.setRotation(kPi / 4.0);
    const double reach = std::sqrt(2.5);
    expectBox(boxOf(placed), {-reach, -reach, 0.0}, {reach, reach, 0.0});
}

TEST_F(BlockExtentsTest, BulgesOfPolylinesAndOutlinesOfUnknownEntitiesCount) {
    const AcDbObjectId block = addBlock(L"B");
    auto polyline = std::make_unique<AcDbPolyline>();
    polyline->addVertexAt(0, {0.0, 0.0}, 1.0);
    polyline->addVertexAt(1, {2.0, 0.0});
    addTo(block, std::move(polyline));
    expectBox(boxOf(*reference(block)), {0.0, -1.0, 0.0}, {2.0, 0.0, 0.0});
    auto solid = std::make_unique<AcDbUnknownEntity>(L"SOLID");
    solid->setOutline({{5.0, 0.0, 0.0}, {5.0, 4.0, 0.0}});
    addTo(block, std::move(solid));
    addTo(block, std::make_unique<AcDbUnknownEntity>(L"MYSTERY"));
    expectBox(boxOf(*reference(block)), {0.0, -1.0, 0.0}, {5.0, 4.0, 0.0});
}

TEST_F(BlockExtentsTest, NestedReferencesStandUnderBothTransforms) {
    const AcDbObjectId inner = addBlock(L"INNER");
    addTo(inner, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    const AcDbObjectId outer = addBlock(L"OUTER");
    auto nested = reference(inner, {5.0, 0.0, 0.0});
    nested->setRotation(kPi / 2.0);
    addTo(outer, std::move(nested));
    AcDbBlockReference placed({100.0, 0.0, 0.0}, outer);
    placed.setScaleFactors({2.0, 2.0, 2.0});
    expectBox(boxOf(placed), {110.0, 0.0, 0.0}, {110.0, 2.0, 0.0});
    // A turn of the whole by 90 degrees takes (10, 0)..(10, 2) to (0, 10)..(-2, 10).
    placed.setRotation(kPi / 2.0);
    expectBox(boxOf(placed), {98.0, 10.0, 0.0}, {100.0, 10.0, 0.0});
}

TEST_F(BlockExtentsTest, AMirroredReferenceStandsInItsOwnSystem) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, line({0.0, 0.0, 0.0}, {3.0, 1.0, 0.0}));
    AcDbBlockReference placed({10.0, 0.0, 0.0}, block);
    placed.setNormal({0.0, 0.0, -1.0});
    // Own X points along the world's -X.
    expectBox(boxOf(placed), {7.0, 0.0, 0.0}, {10.0, 1.0, 0.0});
}

TEST_F(BlockExtentsTest, AttributesAndTheirDefinitionsDoNotCount) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, line({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
    auto definition = std::make_unique<AcDbAttributeDefinition>();
    definition->setPosition({50.0, 50.0, 0.0});
    definition->setHeight(1.0);
    definition->setTextString(L"TAG");
    addTo(block, std::move(definition));
    const AcDbObjectId id = add(reference(block));
    AcDbBlockReference* placed = nullptr;
    ASSERT_EQ(acdbOpenObject(placed, id, AcDb::kForWrite), Acad::eOk);
    auto attribute = std::make_unique<AcDbAttribute>();
    attribute->setPosition({-50.0, 0.0, 0.0});
    attribute->setHeight(1.0);
    attribute->setTextString(L"value");
    AcDbObjectId attributeId;
    ASSERT_EQ(placed->appendAttribute(attributeId, attribute.get()), Acad::eOk);
    attribute.release()->close();
    expectBox(boxOf(*placed), {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    const std::unique_ptr<AcDbObjectIterator> attributes(placed->attributeIterator());
    ASSERT_FALSE(attributes->done());
    EXPECT_EQ(attributes->objectId(), attributeId);
    EXPECT_EQ(host_db::peek<AcDbAttribute>(attributeId)->blockId(), database().modelSpaceId());
    placed->erase();
    placed->close();
    EXPECT_TRUE(attributeId.isErased());
}

TEST_F(BlockExtentsTest, ADefinitionWithoutGeometryHasNone) {
    const AcDbObjectId empty = addBlock(L"EMPTY");
    const AcDbObjectId shell = addBlock(L"SHELL");
    addTo(shell, reference(empty));
    auto onlyTag = addBlock(L"TAG");
    addTo(onlyTag, std::make_unique<AcDbAttributeDefinition>());
    for (const AcDbObjectId block :
         {empty, shell, onlyTag, AcDbObjectId(), database().layerZero()}) {
        AcDbExtents box({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
        EXPECT_EQ(reference(block)->geomExtentsBestFit(box), Acad::eInvalidExtents);
        EXPECT_EQ(reference(block)->getGeomExtents(box), Acad::eInvalidExtents);
        expectBox(box, {1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, 0.0);
    }
}

TEST_F(BlockExtentsTest, ErasedEntitiesDoNotCount) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    const AcDbObjectId far = addTo(block, line({0.0, 0.0, 0.0}, {9.0, 9.0, 0.0}));
    AcDbLine* erased = nullptr;
    ASSERT_EQ(acdbOpenObject(erased, far, AcDb::kForWrite), Acad::eOk);
    erased->erase();
    erased->close();
    expectBox(boxOf(*reference(block)), {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
}

TEST_F(BlockExtentsTest, ADefinitionInsideItselfIsLeftOut) {
    const AcDbObjectId a = addBlock(L"A");
    const AcDbObjectId b = addBlock(L"B");
    addTo(a, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    addTo(a, reference(a, {100.0, 0.0, 0.0}));
    addTo(a, reference(b, {10.0, 0.0, 0.0}));
    addTo(b, line({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}));
    addTo(b, reference(a, {1000.0, 0.0, 0.0}));
    expectBox(boxOf(*reference(a)), {0.0, 0.0, 0.0}, {10.0, 1.0, 0.0});
}

TEST_F(BlockExtentsTest, TheSameDefinitionTwiceSideBySideCountsTwice) {
    const AcDbObjectId leaf = addBlock(L"LEAF");
    addTo(leaf, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    const AcDbObjectId pair = addBlock(L"PAIR");
    addTo(pair, reference(leaf, {-7.0, 0.0, 0.0}));
    addTo(pair, reference(leaf, {7.0, 0.0, 0.0}));
    expectBox(boxOf(*reference(pair)), {-7.0, 0.0, 0.0}, {8.0, 0.0, 0.0});
}

TEST_F(BlockExtentsTest, ADeepNestIsWalkedWithoutDeepCalls) {
    AcDbObjectId below = addBlock(L"LEAF");
    addTo(below, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    for (int i = 0; i < 100'000; ++i) {
        const AcDbObjectId above = addBlock((L"B" + std::to_wstring(i)).c_str());
        addTo(above, reference(below, {0.0, 1.0, 0.0}));
        below = above;
    }
    expectBox(boxOf(*reference(below)), {0.0, 100'000.0, 0.0}, {1.0, 100'000.0, 0.0});
}

TEST_F(BlockExtentsTest, AnExplodingNestIsGivenUp) {
    AcDbObjectId below = addBlock(L"LEAF");
    addTo(below, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    for (int i = 0; i < 40; ++i) {
        const AcDbObjectId above = addBlock((L"B" + std::to_wstring(i)).c_str());
        addTo(above, reference(below));
        addTo(above, reference(below));
        below = above;
    }
    AcDbExtents box({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    EXPECT_EQ(reference(below)->geomExtentsBestFit(box), Acad::eInvalidExtents);
    expectBox(box, {1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, 0.0);
}

TEST_F(BlockExtentsTest, AnArrayOfANestWithItselfInsideReachesToItsLastCell) {
    const AcDbObjectId leaf = addBlock(L"LEAF");
    addTo(leaf, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    const AcDbObjectId outer = addBlock(L"OUTER");
    addTo(outer, reference(leaf, {0.0, 2.0, 0.0}));
    addTo(outer, reference(outer, {1000.0, 0.0, 0.0}));
    addTo(outer, reference(leaf, {0.0, -2.0, 0.0}));
    AcDbBlockReference placed({100.0, 0.0, 0.0}, outer);
    placed.setGrid(2, 2, 10.0, 20.0);
    // Cells at 100 and 110, 0 and 20, each one wide and from -2 to 2.
    expectBox(boxOf(placed), {100.0, -2.0, 0.0}, {111.0, 22.0, 0.0});
}

TEST_F(BlockExtentsTest, AnArrayReachesToItsLastCell) {
    const AcDbObjectId block = addBlock(L"B");
    addTo(block, line({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
    AcDbBlockReference placed({100.0, 0.0, 0.0}, block);
    placed.setGrid(3, 2, 10.0, -5.0);
    expectBox(boxOf(placed), {100.0, -5.0, 0.0}, {121.0, 1.0, 0.0});
    placed.setRotation(kPi / 2.0);
    // Columns now run upwards and rows to the right.
    expectBox(boxOf(placed), {99.0, 0.0, 0.0}, {105.0, 21.0, 0.0});
    EXPECT_EQ(placed.columns(), 3);
    EXPECT_EQ(placed.rows(), 2);
}

TEST(AcDbExtentsTest, StartsEmptyAndGrows) {
    AcDbExtents box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.minPoint().x, 1e20);
    EXPECT_EQ(box.maxPoint().z, -1e20);
    AcDbExtents other;
    box.addExt(other);
    box.expandBy({1.0, 1.0, 1.0});
    EXPECT_TRUE(box.isEmpty());
    box.addPoint({1.0, 2.0, 3.0});
    expectBox(box, {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, 0.0);
    box.expandBy({2.0, -1.0, 0.0});
    expectBox(box, {1.0, 1.0, 3.0}, {3.0, 2.0, 3.0}, 0.0);
    other.set({-1.0, 0.0, 0.0}, {0.0, 5.0, 0.0});
    box.addExt(other);
    expectBox(box, {-1.0, 0.0, 0.0}, {3.0, 5.0, 3.0}, 0.0);
    AcGeMatrix3d turn;
    turn.setToRotation(kPi / 2.0, {0.0, 0.0, 1.0});
    box.transformBy(turn);
    expectBox(box, {-5.0, -1.0, 0.0}, {0.0, 3.0, 3.0});
}

} // namespace
