#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class EntityRecord : public DrawingTest {};

TEST_F(EntityRecord, DefaultIsEmptyAndNotValid) {
    const _Entity entity;
    EXPECT_TRUE(entity.id.isNull());
    EXPECT_TRUE(entity.layer.IsEmpty());
    EXPECT_TRUE(entity.systemName.IsEmpty());
    EXPECT_EQ(entity.valid, 0);
}

TEST_F(EntityRecord, IdAndNameAreKeptAndNothingIsRead) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const _Entity entity(id, L"雨水");
    EXPECT_EQ(entity.id, id);
    EXPECT_EQ(utf8(entity.systemName), "雨水");
    EXPECT_TRUE(entity.layer.IsEmpty());
    EXPECT_EQ(entity.valid, 0);
}

TEST_F(EntityRecord, CopyAndAssignmentTakeEveryField) {
    _Entity entity(drawing.addPipe({0, 0, 0}, {10, 0, 0}), L"雨水");
    entity.layer = L"管线";
    entity.valid = 1;
    _Entity copy(entity);
    _Entity assigned;
    assigned = entity;
    for (const _Entity* other : {&copy, &assigned}) {
        EXPECT_EQ(other->id, entity.id);
        EXPECT_EQ(utf8(other->layer), "管线");
        EXPECT_EQ(utf8(other->systemName), "雨水");
        EXPECT_EQ(other->valid, 1);
    }
}

TEST_F(EntityRecord, SelfAssignmentChangesNothing) {
    _Entity entity(drawing.addPipe({0, 0, 0}, {10, 0, 0}), L"雨水");
    entity.layer = L"管线";
    const _Entity& same = entity;
    entity = same;
    EXPECT_EQ(utf8(entity.layer), "管线");
    EXPECT_EQ(utf8(entity.systemName), "雨水");
    EXPECT_FALSE(entity.id.isNull());
}

} // namespace
} // namespace module_tests
