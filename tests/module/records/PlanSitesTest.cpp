// Where a pipe or a well lies is read without its record, and must be what the record says.

#include "records/PlanSites.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"
#include "records/ReadBlockReference.h"
#include "records/XdataKeys.h"

namespace module_tests {
namespace {

using tkvlt::PipeSite;
using tkvlt::ReadEntity;
using tkvlt::RecordPool;
using tkvlt::SharedTraits;
using tkvlt::WellSite;

class PlanSites : public DrawingTest {
protected:
    /// Whether the entity is taken for a straight pipe longer than one unit.
    bool isStraightAndLonger(AcDbObjectId id) {
        const ReadEntity entity(id);
        return entity.IsStraightAndLonger(1.0, site);
    }

    WellSite addWell(AcDbObjectId id, bool readsLater) {
        ReadEntity entity(id);
        return tkvlt::AddWellTo(pool, id, entity, XdataText(id, xdata::kWellSystem), traits,
                                readsLater);
    }

    PipeSite site;
    RecordPool<_Block> pool;
    SharedTraits traits;
};

TEST_F(PlanSites, AStraightPipeIsTakenFromItsCurve) {
    EXPECT_TRUE(isStraightAndLonger(drawing.addPipe({1, 2, 3}, {4, 6, 15})));
    EXPECT_TRUE(samePoint(site.startPoint, {1, 2, 3}, 0.0));
    EXPECT_TRUE(samePoint(site.endPoint, {4, 6, 15}, 0.0));
    EXPECT_EQ(site.isArc, 0);
    const AcGeLineSeg3d chord = site.Chord();
    EXPECT_TRUE(samePoint(chord.startPoint(), {1, 2, 3}, 0.0));
    EXPECT_TRUE(samePoint(chord.endPoint(), {4, 6, 15}, 0.0));
}

TEST_F(PlanSites, APolylineThatBeginsStraightIsStraight) {
    // Of a polyline its ends and its first segment count.
    EXPECT_TRUE(isStraightAndLonger(drawing.addPolyline({{0, 0}, {5, 0}, {5, 5, 1.0}, {5, 9}})));
    EXPECT_TRUE(samePoint(site.endPoint, {5, 9, 0}, 0.0));
}

TEST_F(PlanSites, AnArcIsLeftToItsRecord) {
    EXPECT_FALSE(isStraightAndLonger(drawing.addArcPipe({10, 0, 0}, {0, 10, 0}, 0.5)));
}

TEST_F(PlanSites, WhatIsNotClearlyLongerIsLeftToItsRecord) {
    EXPECT_FALSE(isStraightAndLonger(drawing.addPipe({0, 0, 0}, {1, 0, 0})));
    EXPECT_FALSE(isStraightAndLonger(drawing.addPipe({0, 0, 0}, {1.0009, 0, 0})));
    EXPECT_TRUE(isStraightAndLonger(drawing.addPipe({0, 0, 0}, {1.002, 0, 0})));
    // A closed polyline ends where it begins.
    EXPECT_FALSE(isStraightAndLonger(drawing.addPolyline({{0, 0}, {9, 0}, {9, 9}}, {}, true)));
}

TEST_F(PlanSites, WhatIsNoCurveIsLeftToItsRecord) {
    EXPECT_FALSE(isStraightAndLonger(drawing.addWell({0, 0, 0})));
    EXPECT_FALSE(isStraightAndLonger(drawing.addText({0, 0, 0}, L"remark")));
}

TEST_F(PlanSites, AnEntityThatIsGoneIsNotOpen) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {9, 0, 0});
    EXPECT_TRUE(static_cast<bool>(ReadEntity(id)));
    drawing.erase(id);
    EXPECT_FALSE(static_cast<bool>(ReadEntity(id)));
}

TEST_F(PlanSites, AnEntityIsOpenUntilItIsClosed) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {9, 0, 0});
    const auto canBeWritten = [&] {
        AcDbObject* object = nullptr;
        const bool isOpen = acdbOpenAcDbObject(object, id, AcDb::kForWrite, false) == Acad::eOk;
        if (isOpen) {
            object->close();
        }
        return isOpen;
    };
    {
        ReadEntity entity(id);
        EXPECT_FALSE(canBeWritten());
        entity.Close();
        EXPECT_TRUE(canBeWritten());
        EXPECT_FALSE(static_cast<bool>(entity));
        EXPECT_EQ(entity.get(), nullptr);
    }
    {
        const ReadEntity entity(id);
        EXPECT_FALSE(canBeWritten());
    }
    EXPECT_TRUE(canBeWritten());
}

TEST_F(PlanSites, AWellIsTakenFromItsReference) {
    drawing.setDrawScale(500.0);
    // 1.2 metres wide at 500: 0.6 metres of radius are 1.2 units.
    const AcDbObjectId id =
        drawing.addWell({7, 8, 9}, {.diameter = L"1.2", .system = kStorm, .square = true});
    for (const bool readsLater : {true, false}) {
        const WellSite well = addWell(id, readsLater);
        EXPECT_EQ(well.id, id);
        EXPECT_TRUE(samePoint(well.position, {7, 8, 9}, 0.0));
        EXPECT_DOUBLE_EQ(well.radius, 1.2);
        EXPECT_EQ(well.isSquareWell, 1);
        EXPECT_EQ(utf8(traits.systems[well.system]), "雨水");
    }
    ASSERT_EQ(pool.Size(), 2);
    EXPECT_FALSE(pool.IsRead(0));
    EXPECT_TRUE(pool.IsRead(1));
    for (const int i : {0, 1}) {
        EXPECT_EQ(pool.IdOf(i), id);
        EXPECT_EQ(pool[i].id, id);
        EXPECT_EQ(utf8(pool[i].systemName), "雨水");
        EXPECT_TRUE(samePoint(pool[i].position, {7, 8, 9}, 0.0));
        EXPECT_DOUBLE_EQ(pool[i].radius, 1.2);
        EXPECT_EQ(pool[i].isSquareWell, 1);
    }
    EXPECT_TRUE(pool.IsRead(0));
}

// What is remembered of one well must not be taken for the next.
TEST_F(PlanSites, WellsOfMixedSizesAndShapesKeepTheirOwn) {
    drawing.setDrawScale(1000.0);
    struct Case {
        const wchar_t* diameter;
        bool square;
        double radius;
    };
    const Case cases[] = {{L"", false, 0.0},    {L"1", false, 0.5}, {L"1", true, 0.5},
                          {L"2.5", true, 1.25}, {L"1", false, 0.5}, {L"", true, 0.0},
                          {L"", false, 0.0},    {L"3", false, 1.5}, {L"1.0", false, 0.5}};
    for (const Case& each : cases) {
        const AcDbObjectId id = drawing.addWell(
            {1, 2, 0}, {.diameter = each.diameter, .system = kStorm, .square = each.square});
        const WellSite well = addWell(id, true);
        EXPECT_DOUBLE_EQ(well.radius, each.radius) << utf8(CString(each.diameter));
        EXPECT_EQ(well.isSquareWell, each.square ? 1 : 0) << utf8(CString(each.diameter));
    }
}

TEST_F(PlanSites, AWellThatIsNoBlockIsReadAtOnce) {
    // Anything may carry the key of a well; its record then stays where records begin, and is as
    // wide as its text says: half of 3 metres at 1000.
    const AcDbObjectId id = drawing.addText({4, 4, 0}, L"remark");
    drawing.setText(id, xdata::kWellSystem, kSewer);
    drawing.setText(id, xdata::kWellDiameter, L"3");
    const WellSite well = addWell(id, true);
    EXPECT_TRUE(pool.IsRead(0));
    EXPECT_TRUE(samePoint(well.position, {0, 0, 0}, 0.0));
    EXPECT_DOUBLE_EQ(well.radius, 1.5);
    EXPECT_EQ(well.isSquareWell, 0);
    EXPECT_EQ(utf8(traits.systems[well.system]), "污水");
}

TEST_F(PlanSites, AWellReadBesideItsSiteIsTheWholeRecord) {
    drawing.defineLayer(L"井");
    const AcDbObjectId definition = drawing.defineBlock(L"VLT_WELL_04", {-1, -2, 0}, {1, 2, 0});
    auto* reference = new AcDbBlockReference({10, 20, 30}, definition);
    reference->setScaleFactors({2, 3, 1});
    reference->setRotation(kPi / 2);
    reference->setLayer(L"井");
    const AcDbObjectId id =
        drawing.addEntity(reference, {{xdata::kWellSystem, kSewer}, {xdata::kWellDiameter, L"4"}});
    const WellSite well = addWell(id, true);
    _Block block;
    tkvlt::FillFromSite(well, traits.systems, block);
    tkvlt::ReadBlockReference(block);
    EXPECT_EQ(block.id, id);
    EXPECT_EQ(utf8(block.systemName), "污水");
    EXPECT_EQ(utf8(block.layer), "井");
    EXPECT_TRUE(block.note.IsEmpty());
    EXPECT_FALSE(block.handle.IsEmpty());
    EXPECT_EQ(block.handle.Compare(pool[0].handle), 0);
    EXPECT_DOUBLE_EQ(block.radius, 2.0); // half of 4 metres
    EXPECT_EQ(block.isSquareWell, 1);
    EXPECT_EQ(block.scale.sx, 2.0);
    EXPECT_EQ(block.scale.sy, 3.0);
    EXPECT_DOUBLE_EQ(block.rotation, kPi / 2);
    EXPECT_EQ(block.valid, 1);
    // Scaled to (+-2, +-6) and turned by a quarter, it reaches 6 to the sides and 2 up and down.
    EXPECT_TRUE(samePoint(block.extents.minPoint(), {4, 18, 30}));
    EXPECT_TRUE(samePoint(block.extents.maxPoint(), {16, 22, 30}));
}

} // namespace
} // namespace module_tests
