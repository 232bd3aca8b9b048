#include "host/database/DatabaseFixture.h"

#include "database/AcDbArc.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbSpline.h"
#include "database/UndoJournal.h"
#include "platform/HostEvents.h"

#include <functional>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;

bool isAttribute(const AcDbEntity& entity) {
    return AcDbAttributeDefinition::cast(&entity) != nullptr ||
           AcDbAttribute::cast(&entity) != nullptr;
}

/// The box reckoned from the definition's entities as they are now.
bool addEntities(const AcDbBlockReference& reference, const AcGeMatrix3d& shown, AcDbExtents& box) {
    const auto* block = host_db::peek<AcDbBlockTableRecord>(reference.blockTableRecord());
    bool foundAny = false;
    for (const AcDbObjectId id : block->entityIds()) {
        const auto* entity = host_db::peek<AcDbEntity>(id);
        if (entity == nullptr || isAttribute(*entity)) {
            continue;
        }
        const auto* nested = AcDbBlockReference::cast(entity);
        const bool found = nested != nullptr
                               ? addEntities(*nested, shown * nested->blockTransform(), box)
                               : entity->addExtents(shown, box);
        foundAny = found || foundAny;
    }
    return foundAny;
}

void expectSame(const AcGePoint3d& a, const AcGePoint3d& b) {
    EXPECT_EQ(a.x, b.x);
    EXPECT_EQ(a.y, b.y);
    EXPECT_EQ(a.z, b.z);
}

/// Asked twice, a reference has the very box of its entities.
void expectBoxOfEntities(const AcDbBlockReference& reference,
                         const AcGeMatrix3d& transform = AcGeMatrix3d::kIdentity) {
    AcDbExtents expected;
    const bool isIdentity = &transform == &AcGeMatrix3d::kIdentity;
    const AcGeMatrix3d shown = reference.blockTransform();
    const bool foundAny = addEntities(reference, isIdentity ? shown : transform * shown, expected);
    for (int i = 0; i < 2; ++i) {
        AcDbExtents box;
        ASSERT_EQ(reference.geomExtentsBestFit(box, transform),
                  foundAny ? Acad::eOk : Acad::eInvalidExtents);
        expectSame(box.minPoint(), expected.minPoint());
        expectSame(box.maxPoint(), expected.maxPoint());
    }
}

/// Calls a function at each event.
class AtEvents : private host::EventListener {
public:
    explicit AtEvents(std::function<void(const std::wstring&)> call) : call_(std::move(call)) {
        host::addListener(*this);
    }
    ~AtEvents() override { host::removeListener(*this); }

private:
    void onEvent(const std::wstring& line) override { call_(line); }

    std::function<void(const std::wstring&)> call_;
};

class BlockShapesTest : public DatabaseFixture {
protected:
    static std::unique_ptr<AcDbCircle> circle(const AcGePoint3d& center, double radius) {
        return std::make_unique<AcDbCircle>(center, AcGeVector3d(0.0, 0.0, 1.0), radius);
    }

    static std::unique_ptr<AcDbLine> line(const AcGePoint3d& start, const AcGePoint3d& end) {
        return std::make_unique<AcDbLine>(start, end);
    }

    /// A symbol with one curve of each kind.
    AcDbObjectId addSymbol(const ACHAR* name) {
        const AcDbObjectId block = addBlock(name, {0.3, -0.7, 0.1});
        addTo(block, circle({0.1, 0.2, 0.3}, 1.7));
        addTo(block, line({-3.1, 0.4, 0.0}, {2.9, 0.7, 1.1}));
        addTo(block, std::make_unique<AcDbArc>(AcGePoint3d(4.0, 0.1, 0.0), 1.3, 0.3, 4.1));
        addTo(block,
              std::make_unique<AcDbEllipse>(AcGePoint3d(0.0, 5.0, 0.0), AcGeVector3d(0.0, 0.0, 1.0),
                                            AcGeVector3d(1.1, 0.4, 0.0), 0.6, 0.2, 3.0));
        auto polyline = std::make_unique<AcDbPolyline>();
        polyline->addVertexAt(0, {0.0, -4.0}, 0.7);
        polyline->addVertexAt(1, {2.0, -5.0}, -1.3);
        polyline->addVertexAt(2, {5.0, -4.5});
        addTo(block, std::move(polyline));
        return block;
    }

    static AcDbBlockReference placed(AcDbObjectId block) {
        return {AcGePoint3d(1234.567, -89.01, 2.3), block};
    }

    template<typename T>
    static void change(AcDbObjectId id, const std::function<void(T&)>& act) {
        T* object = nullptr;
        ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForWrite, true), Acad::eOk);
        act(*object);
        EXPECT_EQ(object->close(), Acad::eOk);
    }

    static double widthOf(const AcDbBlockReference& reference) {
        AcDbExtents box;
        EXPECT_EQ(reference.geomExtentsBestFit(box), Acad::eOk);
        return box.maxPoint().x - box.minPoint().x;
    }
};

TEST_F(BlockShapesTest, EveryReferenceHasTheVeryBoxOfItsEntities) {
    const AcDbObjectId block = addSymbol(L"SYMBOL");
    AcGeMatrix3d given;
    given.setToRotation(0.37, {1.0, 2.0, 3.0}, {5.0, -6.0, 7.0});
    for (const AcGeScale3d& scale :
         {AcGeScale3d(1.0), AcGeScale3d(0.37), AcGeScale3d(2.0, 3.0, 0.5),
          AcGeScale3d(-1.0, 1.0, 1.0), AcGeScale3d(1.3, -0.9, -2.0)}) {
        for (const double rotation : {0.0, 0.25 * kPi, -2.1, kPi}) {
            for (const AcGeVector3d& normal :
                 {AcGeVector3d(0.0, 0.0, 1.0), AcGeVector3d(0.0, 0.0, -1.0),
                  AcGeVector3d(0.3, -0.4, 0.5)}) {
                AcDbBlockReference reference = placed(block);
                reference.setScaleFactors(scale);
                reference.setRotation(rotation);
                reference.setNormal(normal);
                expectBoxOfEntities(reference);
                expectBoxOfEntities(reference, given);
            }
        }
    }
}

TEST_F(BlockShapesTest, ChangesOfTheDefinitionCount) {
    const AcDbObjectId block = addBlock(L"B");
    const AcDbBlockReference reference({}, block);
    expectBoxOfEntities(reference);
    const AcDbObjectId round = addTo(block, circle({0.0, 0.0, 0.0}, 2.0));
    EXPECT_DOUBLE_EQ(widthOf(reference), 4.0);
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.setRadius(0.5); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 1.0);
    addTo(block, line({0.0, 0.0, 0.0}, {10.5, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(widthOf(reference), 11.0);
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.erase(); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 10.5);
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.erase(false); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 11.0);
    change<AcDbBlockTableRecord>(block, [](auto& it) { it.setOrigin({3.0, 0.0, 0.0}); });
    expectBoxOfEntities(reference);
    addTo(block, std::make_unique<AcDbBlockReference>(AcGePoint3d(50.0, 0.0, 0.0), block));
    EXPECT_DOUBLE_EQ(widthOf(reference), 11.0);
}

TEST_F(BlockShapesTest, AnEntityThatTakesAnothersPlaceCounts) {
    const AcDbObjectId block = addBlock(L"B");
    const AcDbObjectId round = addTo(block, circle({0.0, 0.0, 0.0}, 2.0));
    const AcDbBlockReference reference({}, block);
    EXPECT_DOUBLE_EQ(widthOf(reference), 4.0);
    AcDbCircle* former = nullptr;
    ASSERT_EQ(acdbOpenObject(former, round, AcDb::kForWrite), Acad::eOk);
    std::unique_ptr<AcDbLine> latter = line({0.0, 0.0, 0.0}, {7.0, 1.0, 0.0});
    ASSERT_EQ(former->handOverTo(latter.get()), Acad::eOk);
    EXPECT_DOUBLE_EQ(widthOf(reference), 7.0);
    EXPECT_EQ(latter.release()->close(), Acad::eOk);
    delete former;
    EXPECT_DOUBLE_EQ(widthOf(reference), 7.0);
}

TEST_F(BlockShapesTest, WhatIsTakenBackCountsNoMore) {
    host_db::UndoJournal& journal = database().undoJournal();
    const AcDbObjectId block = addBlock(L"B");
    const AcDbObjectId round = addTo(block, circle({0.0, 0.0, 0.0}, 2.0));
    const AcDbBlockReference reference({}, block);
    EXPECT_DOUBLE_EQ(widthOf(reference), 4.0);
    journal.closeStep();
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.setRadius(8.0); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 16.0);
    journal.closeStep();
    addTo(block, line({0.0, 0.0, 0.0}, {92.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(widthOf(reference), 100.0);
    ASSERT_TRUE(journal.undo(1));
    EXPECT_DOUBLE_EQ(widthOf(reference), 16.0);
    ASSERT_TRUE(journal.undo(1));
    EXPECT_DOUBLE_EQ(widthOf(reference), 4.0);
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.setRadius(3.0); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 6.0);
    ASSERT_TRUE(journal.rollBack());
    EXPECT_DOUBLE_EQ(widthOf(reference), 4.0);
}

TEST_F(BlockShapesTest, AQuestionAmidAChangeDoesNotLast) {
    const AcDbObjectId block = addBlock(L"B");
    const AcDbObjectId round = addTo(block, circle({0.0, 0.0, 0.0}, 2.0));
    addTo(block, line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    const AcDbBlockReference reference({}, block);
    std::vector<double> widths;
    const AtEvents asker([&](const std::wstring&) { widths.push_back(widthOf(reference)); });
    change<AcDbCircle>(round, [](AcDbCircle& it) { it.erase(); });
    EXPECT_DOUBLE_EQ(widthOf(reference), 1.0);
    // At the opening, at the erasing and at the closing.
    EXPECT_EQ(widths, (std::vector<double>{4.0, 1.0, 1.0}));
    addTo(block, line({0.0, 0.0, 0.0}, {0.0, 9.0, 0.0}));
    addTo(block, line({0.0, 0.0, 0.0}, {5.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(widthOf(reference), 5.0);
    expectBoxOfEntities(reference);
}

TEST_F(BlockShapesTest, LayersAreOfNoAccount) {
    const AcDbObjectId block = addSymbol(L"SYMBOL");
    const AcDbBlockReference reference = placed(block);
    const double width = widthOf(reference);
    change<AcDbLayerTableRecord>(database().layerZero(), [](AcDbLayerTableRecord& layer) {
        layer.setIsOff(true);
        layer.setIsFrozen(true);
    });
    EXPECT_EQ(widthOf(reference), width);
    expectBoxOfEntities(reference);
}

TEST_F(BlockShapesTest, NestedDefinitionsFollowTheirChanges) {
    const AcDbObjectId inner = addSymbol(L"INNER");
    const AcDbObjectId outer = addBlock(L"OUTER", {1.0, 2.0, 3.0});
    auto nested = std::make_unique<AcDbBlockReference>(AcGePoint3d(7.1, 8.2, 9.3), inner);
    nested->setRotation(0.7);
    nested->setScaleFactors({1.1, -2.0, 0.3});
    addTo(outer, std::move(nested));
    addTo(outer, circle({0.0, 0.0, 0.0}, 0.01));
    const AcDbBlockReference outside = placed(outer);
    const AcDbBlockReference inside = placed(inner);
    expectBoxOfEntities(outside);
    expectBoxOfEntities(inside);
    addTo(inner, line({0.0, 0.0, 0.0}, {777.0, 0.0, 0.0}));
    expectBoxOfEntities(outside);
    expectBoxOfEntities(inside);
}

TEST_F(BlockShapesTest, DefinitionsAreToldApart) {
    std::vector<AcDbObjectId> blocks;
    for (int i = 0; i < 200; ++i) {
        blocks.push_back(addBlock((L"B" + std::to_wstring(i)).c_str()));
        addTo(blocks.back(), circle({0.0, 0.0, 0.0}, 1.0 + i));
    }
    AcDbDatabase other;
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 200; ++i) {
            EXPECT_DOUBLE_EQ(widthOf({AcGePoint3d(), blocks[static_cast<std::size_t>(i)]}),
                             2.0 + 2.0 * i);
        }
    }
}

TEST_F(BlockShapesTest, LargeAndSmoothDefinitionsAreWalked) {
    const AcDbObjectId large = addBlock(L"LARGE");
    for (int i = 0; i < 40; ++i) {
        addTo(large, circle({1.5 * i, 0.3 * i, 0.0}, 0.7));
        expectBoxOfEntities(placed(large));
    }
    const AcDbObjectId smooth = addSymbol(L"SMOOTH");
    const host_db::NurbsCurve curve(2, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0},
                                    {{0.0, 0.0, 0.0}, {3.0, 40.0, 0.0}, {8.0, 0.0, 0.0}}, {});
    auto spline = std::make_unique<AcDbSpline>(curve);
    addTo(smooth, std::move(spline));
    expectBoxOfEntities(placed(smooth));
}

TEST_F(BlockShapesTest, AttributeDefinitionsAndArraysDoNotMixIn) {
    const AcDbObjectId block = addSymbol(L"SYMBOL");
    AcDbBlockReference reference = placed(block);
    const double width = widthOf(reference);
    auto definition = std::make_unique<AcDbAttributeDefinition>();
    definition->setPosition({500.0, 50.0, 0.0});
    definition->setHeight(1.0);
    definition->setTextString(L"TAG");
    addTo(block, std::move(definition));
    EXPECT_EQ(widthOf(reference), width);
    expectBoxOfEntities(reference);
    reference.setGrid(2, 1, 100.0, 0.0);
    EXPECT_NEAR(widthOf(reference), width + 100.0, 1e-9);
    reference.setGrid(1, 1, 100.0, 0.0);
    EXPECT_EQ(widthOf(reference), width);
}

} // namespace
