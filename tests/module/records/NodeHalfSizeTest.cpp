#include "records/NodeHalfSize.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

using tkvlt::NodeHalfSize;

class NodeHalfSizeRule : public DrawingTest {};

TEST_F(NodeHalfSizeRule, WellHasHalfItsDiameterInMetres) {
    drawing.setDrawScale(500.0);
    EXPECT_DOUBLE_EQ(NodeHalfSize(drawing.addWell({0, 0, 0}, {.diameter = L"1.5"})), 1.5);
}

TEST_F(NodeHalfSizeRule, TankHasHalfItsLengthInMillimetres) {
    drawing.setDrawScale(500.0);
    const AcDbObjectId tank = drawing.addTank({0, 0, 0}, {5, 5, 0}, {.length = L"3000"});
    EXPECT_DOUBLE_EQ(NodeHalfSize(tank), 3.0);
}

TEST_F(NodeHalfSizeRule, BlockWithNeitherSystemIsZero) {
    const AcDbObjectId block =
        drawing.addBlock({0, 0, 0}, L"OTHER", {{L"井的直径", L"1.5"}, {L"长度", L"3000"}});
    EXPECT_EQ(NodeHalfSize(block), 0.0);
}

TEST_F(NodeHalfSizeRule, TankByItsShortNameAloneIsZero) {
    const AcDbObjectId tank =
        drawing.addTank({0, 0, 0}, {5, 5, 0}, {.system = nullptr, .length = L"3000"});
    EXPECT_EQ(NodeHalfSize(tank), 0.0);
}

TEST_F(NodeHalfSizeRule, EntityThatIsBothCountsAsAWell) {
    drawing.setDrawScale(500.0);
    const AcDbObjectId both = drawing.addBlock(
        {0, 0, 0}, L"BOTH",
        {{L"管井系统", kSewer}, {L"池体系统", kSewer}, {L"井的直径", L"1.5"}, {L"长度", L"3000"}});
    EXPECT_DOUBLE_EQ(NodeHalfSize(both), 1.5);
}

TEST_F(NodeHalfSizeRule, WellWithoutDiameterIsZeroEvenWithALength) {
    const AcDbObjectId empty = drawing.addWell({0, 0, 0}, {.diameter = L""});
    drawing.setText(empty, L"长度", L"3000");
    drawing.setText(empty, L"池体系统", kSewer);
    EXPECT_EQ(NodeHalfSize(empty), 0.0);
    const AcDbObjectId missing = drawing.addWell({0, 0, 0}, {.diameter = nullptr});
    drawing.setText(missing, L"长度", L"3000");
    EXPECT_EQ(NodeHalfSize(missing), 0.0);
}

TEST_F(NodeHalfSizeRule, WellNameWithoutTextLeavesTheTank) {
    drawing.setDrawScale(500.0);
    const AcDbObjectId tank = drawing.addBlock(
        {0, 0, 0}, L"BOTH",
        {{L"管井系统", L""}, {L"池体系统", kSewer}, {L"井的直径", L"9"}, {L"长度", L"3000"}});
    EXPECT_DOUBLE_EQ(NodeHalfSize(tank), 3.0);
}

TEST_F(NodeHalfSizeRule, TankWithoutLengthIsZero) {
    EXPECT_EQ(NodeHalfSize(drawing.addTank({0, 0, 0}, {5, 5, 0})), 0.0);
}

TEST_F(NodeHalfSizeRule, MalformedTextsGiveTheirNumericPrefix) {
    EXPECT_DOUBLE_EQ(NodeHalfSize(drawing.addWell({0, 0, 0}, {.diameter = L"1.5m"})), 0.75);
    EXPECT_EQ(NodeHalfSize(drawing.addWell({0, 0, 0}, {.diameter = L"wide"})), 0.0);
}

TEST_F(NodeHalfSizeRule, NullAndErasedIdsAreZero) {
    EXPECT_EQ(NodeHalfSize(AcDbObjectId::kNull), 0.0);
    const AcDbObjectId well = drawing.addWell({0, 0, 0}, {.diameter = L"1.5"});
    drawing.erase(well);
    EXPECT_EQ(NodeHalfSize(well), 0.0);
}

} // namespace
} // namespace module_tests
