#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class TextRecord : public DrawingTest {};

TEST_F(TextRecord, DefaultsAreThoseOfTheTable) {
    const _Text text;
    EXPECT_EQ(text.height, 0.0);
    EXPECT_EQ(text.widthFactor, 0.0);
    EXPECT_TRUE(samePoint(text.position, {0, 0, 0}, 0.0));
    EXPECT_TRUE(text.handle.IsEmpty());
    EXPECT_TRUE(text.text.IsEmpty());
    EXPECT_EQ(text.rotation, 0.0);
    EXPECT_EQ(text.width, 0.0);
    EXPECT_EQ(text.horizontalMode, 0);
    EXPECT_EQ(text.verticalMode, 0);
    EXPECT_EQ(text.valid, 0);
    EXPECT_TRUE(text.id.isNull());
}

TEST_F(TextRecord, ReadsTheTextEntity) {
    drawing.defineLayer(L"标注");
    auto* entity = new AcDbText({1, 2, 3}, L"DN300", AcDbObjectId::kNull, 2.5, 0.5);
    entity->setWidthFactor(0.75);
    entity->setLayer(L"标注");
    const AcDbObjectId id = drawing.addEntity(entity);
    const _Text text(id);
    EXPECT_EQ(text.id, id);
    EXPECT_TRUE(text.systemName.IsEmpty());
    EXPECT_EQ(utf8(text.layer), "标注");
    EXPECT_DOUBLE_EQ(text.height, 2.5);
    EXPECT_DOUBLE_EQ(text.widthFactor, 0.75);
    EXPECT_TRUE(samePoint(text.position, {1, 2, 3}, 0.0));
    EXPECT_EQ(drawing.byHandle(text.handle), id);
    EXPECT_EQ(utf8(text.text), "DN300");
    EXPECT_DOUBLE_EQ(text.rotation, 0.5);
    EXPECT_EQ(text.horizontalMode, 0);
    EXPECT_EQ(text.verticalMode, 0);
    EXPECT_EQ(text.valid, 1);
    EXPECT_EQ(host_db::openObjectCount(), 0U);
}

TEST_F(TextRecord, RotatedTextHasTheWidthOfItsUnrotatedForm) {
    const _Text flat(drawing.addText({0, 0, 0}, L"DN300", 2.0, 0.0));
    const _Text upright(drawing.addText({0, 0, 0}, L"DN300", 2.0, kPi / 2));
    EXPECT_GT(flat.width, 2.0); // five characters of height 2
    EXPECT_DOUBLE_EQ(upright.width, flat.width);
}

TEST_F(TextRecord, MeasuringLeavesTheRotationOfTheEntity) {
    const AcDbObjectId id = drawing.addText({0, 0, 0}, L"DN300", 2.0, 0.75);
    const _Text text(id);
    AcDbText* entity = nullptr;
    ASSERT_EQ(acdbOpenObject(entity, id), Acad::eOk);
    EXPECT_DOUBLE_EQ(entity->rotation(), 0.75);
    entity->close();
}

TEST_F(TextRecord, WidthGrowsWithTheHeight) {
    const _Text small(drawing.addText({0, 0, 0}, L"管径", 1.0));
    const _Text large(drawing.addText({0, 0, 0}, L"管径", 3.0));
    EXPECT_NEAR(large.width, 3.0 * small.width, 1e-9);
}

class TextAnchor : public TextRecord {
protected:
    _Text aligned(AcDb::TextHorzMode horizontal, AcDb::TextVertMode vertical) {
        auto* entity = new AcDbText({1, 1, 0}, L"W1", AcDbObjectId::kNull, 1.0);
        entity->setHorizontalMode(horizontal);
        entity->setVerticalMode(vertical);
        entity->setAlignmentPoint({50, 60, 0});
        return _Text(drawing.addEntity(entity));
    }
};

TEST_F(TextAnchor, LeftBaselineTextIsAnchoredAtItsInsertionPoint) {
    const _Text text(drawing.addText({1, 1, 0}, L"W1"));
    EXPECT_TRUE(samePoint(text.position, {1, 1, 0}, 0.0));
}

TEST_F(TextAnchor, MiddleAlignedTextIsAnchoredAtItsAlignmentPoint) {
    const _Text text = aligned(AcDb::kTextMid, AcDb::kTextBase);
    EXPECT_TRUE(samePoint(text.position, {50, 60, 0}, 0.0));
    EXPECT_EQ(text.horizontalMode, 4);
    EXPECT_EQ(text.verticalMode, 0);
}

TEST_F(TextAnchor, OneModeAloneAnchorsAtTheAlignmentPoint) {
    const _Text top = aligned(AcDb::kTextLeft, AcDb::kTextTop);
    EXPECT_TRUE(samePoint(top.position, {50, 60, 0}, 0.0));
    EXPECT_EQ(top.horizontalMode, 0);
    EXPECT_EQ(top.verticalMode, 3);
}

TEST_F(TextRecord, TextBetweenTwoPointsIsAsWideAsTheyAreApart) {
    for (const AcDb::TextHorzMode mode : {AcDb::kTextAlign, AcDb::kTextFit}) {
        auto* entity = new AcDbText({1, 1, 0}, L"DN300", AcDbObjectId::kNull, 2.0);
        entity->setAlignmentPoint({1, 31, 0});
        entity->setHorizontalMode(mode);
        EXPECT_DOUBLE_EQ(_Text(drawing.addEntity(entity)).width, 30.0);
    }
}

TEST_F(TextRecord, EntityThatIsNoTextLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addPipe({0, 0, 0}, {10, 0, 0});
    const _Text text(id);
    EXPECT_EQ(text.id, id);
    EXPECT_EQ(text.valid, 0);
    EXPECT_TRUE(text.text.IsEmpty());
    EXPECT_TRUE(text.layer.IsEmpty());
    EXPECT_EQ(text.width, 0.0);
    EXPECT_EQ(text.height, 0.0);
}

void expectNothingRead(const _Text& text) {
    EXPECT_EQ(text.valid, 0);
    EXPECT_TRUE(text.text.IsEmpty());
    EXPECT_TRUE(text.layer.IsEmpty());
    EXPECT_TRUE(text.handle.IsEmpty());
    EXPECT_EQ(text.width, 0.0);
    EXPECT_EQ(text.height, 0.0);
    EXPECT_EQ(text.widthFactor, 0.0);
}

TEST_F(TextRecord, TextThatIsBeingWrittenLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addText({1, 1, 0}, L"W1");
    AcDbText* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, id, AcDb::kForWrite), Acad::eOk);
    expectNothingRead(_Text(id));
    writer->close();
    EXPECT_EQ(_Text(id).valid, 1);
}

TEST_F(TextRecord, ErasedTextLeavesTheDefaults) {
    const AcDbObjectId id = drawing.addText({1, 1, 0}, L"W1");
    drawing.erase(id);
    expectNothingRead(_Text(id));
}

TEST_F(TextRecord, EmptyTextHasNoWidth) {
    const _Text text(drawing.addText({1, 1, 0}, L"", 2.0));
    EXPECT_EQ(text.width, 0.0);
    EXPECT_DOUBLE_EQ(text.height, 2.0);
    EXPECT_EQ(text.valid, 1);
}

void expectSameText(const _Text& actual, const _Text& expected) {
    EXPECT_EQ(actual.id, expected.id);
    EXPECT_EQ(utf8(actual.layer), utf8(expected.layer));
    EXPECT_EQ(utf8(actual.systemName), utf8(expected.systemName));
    EXPECT_EQ(actual.valid, expected.valid);
    EXPECT_EQ(actual.height, expected.height);
    EXPECT_EQ(actual.widthFactor, expected.widthFactor);
    EXPECT_TRUE(samePoint(actual.position, expected.position, 0.0));
    EXPECT_EQ(utf8(actual.handle), utf8(expected.handle));
    EXPECT_EQ(utf8(actual.text), utf8(expected.text));
    EXPECT_EQ(actual.rotation, expected.rotation);
    EXPECT_EQ(actual.width, expected.width);
    EXPECT_EQ(actual.horizontalMode, expected.horizontalMode);
    EXPECT_EQ(actual.verticalMode, expected.verticalMode);
}

TEST_F(TextAnchor, CopyAndAssignmentTakeEveryField) {
    _Text text = aligned(AcDb::kTextRight, AcDb::kTextVertMid);
    text.systemName = kStorm;
    text.rotation = 0.5;
    ASSERT_GT(text.width, 0.0);
    _Text copy(text);
    expectSameText(copy, text);
    _Text assigned;
    assigned = text;
    expectSameText(assigned, text);
    const _Text& same = assigned;
    assigned = same;
    expectSameText(assigned, text);
}

} // namespace
} // namespace module_tests
