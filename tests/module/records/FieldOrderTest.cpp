// Sibling modules read the fields of the records directly, so their order is part of the boundary.

#include "TKVltSearchModule18.h"

#include "module/support/DrawingBuilder.h"
#include "module/support/FieldOrder.h"

namespace module_tests {
namespace {

TEST(FieldOrder, TheCheckRefusesAWrongOrder) {
    const struct {
        int first;
        int second;
    } pair{};
    EXPECT_TRUE(standInThisOrder(&pair, sizeof pair, {&pair.first, &pair.second}));
    EXPECT_FALSE(standInThisOrder(&pair, sizeof pair, {&pair.second, &pair.first}));
}

TEST(FieldOrder, Entity) {
    const _Entity e;
    EXPECT_TRUE(standInThisOrder(&e, sizeof e, {&e.id, &e.layer, &e.systemName, &e.valid}));
}

TEST(FieldOrder, Pipe) {
    const _Pipe p;
    EXPECT_TRUE(standInThisOrder(&p, sizeof p,
                                 {&p.id, &p.layer, &p.systemName, &p.valid, &p.startPoint,
                                  &p.endPoint, &p.direction, &p.angle, &p.isPolyline, &p.isArc,
                                  &p.line, &p.arc, &p.orientationFlag}));
}

TEST(FieldOrder, Block) {
    const DrawingBuilder drawing;
    const _Block b;
    EXPECT_TRUE(
        standInThisOrder(&b, sizeof b,
                         {&b.id, &b.layer, &b.systemName, &b.valid, &b.note, &b.handle, &b.position,
                          &b.scale, &b.extents, &b.rotation, &b.radius, &b.isSquareWell}));
}

TEST(FieldOrder, Text) {
    const _Text t;
    EXPECT_TRUE(standInThisOrder(&t, sizeof t,
                                 {&t.id, &t.layer, &t.systemName, &t.valid, &t.height,
                                  &t.widthFactor, &t.position, &t.handle, &t.text, &t.rotation,
                                  &t.width, &t.horizontalMode, &t.verticalMode}));
}

TEST(FieldOrder, Well) {
    const DrawingBuilder drawing;
    const Well w;
    EXPECT_TRUE(standInThisOrder(&w, sizeof w,
                                 {&w.id, &w.note, &w.isSquareWell, &w.isWell, &w.nodeEntity,
                                  &w.nodePoint, &w.mergedEntities, &w.nodeRadius, &w.outSegs,
                                  &w.inSeg, &w.number, &w.extraList, &w.extraPoint}));
}

TEST(FieldOrder, GravitySeg) {
    const GravitySeg s;
    EXPECT_TRUE(standInThisOrder(
        &s, sizeof s,
        {&s.pipeIds,     &s.startWell,     &s.endWell,        &s.startPoint,   &s.endPoint,
         &s.startEntity, &s.endEntity,     &s.startElevation, &s.endElevation, &s.slope,
         &s.diameter,    &s.flowText,      &s.material,       &s.systemName,   &s.extraValue1,
         &s.extraValue2, &s.extraValue3,   &s.extraValue4,    &s.extraValue5,  &s.flowReversed,
         &s.length,      &s.annotatePoint, &s.annotateVector}));
}

TEST(FieldOrder, GravitySegBeginsWithItsFirstField) {
    const GravitySeg s;
    EXPECT_EQ(static_cast<const void*>(&s), static_cast<const void*>(&s.pipeIds));
}

TEST(FieldOrder, GravitySearchObject) {
    const GravitySearchObject o;
    EXPECT_TRUE(standInThisOrder(&o, sizeof o,
                                 {&o.wells, &o.segs, &o.pathSegs, &o.pathWells, &o.rootWell}));
}

TEST(FieldOrder, SearchObjectHasNoFields) {
    EXPECT_EQ(sizeof(SearchObject), sizeof(CObject));
}

} // namespace
} // namespace module_tests
