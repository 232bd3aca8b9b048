#include "module/gravity_segment/SearchTest.h"

namespace module_tests {
namespace {

using tkvlt::kPipeEntity;
using tkvlt::kTankEntity;
using tkvlt::kWellEntity;

class ValidateEnds : public SearchTest {
protected:
    AcDbObjectId block(std::initializer_list<KeyText> texts) {
        return drawing.addBlock({0, 0, 0}, L"ANY", texts);
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, ValidateEnds, bothModes(), modeName);

TEST_P(ValidateEnds, KindCodesAreThoseOfTheContext) {
    EXPECT_EQ(static_cast<int>(kWellEntity), 0);
    EXPECT_EQ(static_cast<int>(kTankEntity), 1);
    EXPECT_EQ(static_cast<int>(kPipeEntity), 2);
}

TEST_P(ValidateEnds, EqualEndsAreRefused) {
    const AcDbObjectId well = drawing.addWell({0, 0, 0});
    EXPECT_EQ(begin(well, well).ValidateEnds(), 0);
}

TEST_P(ValidateEnds, TwoNullEndsAreRefused) {
    EXPECT_EQ(begin().ValidateEnds(), 0);
}

TEST_P(ValidateEnds, NullStartIsRefused) {
    EXPECT_EQ(begin(AcDbObjectId(), drawing.addWell({0, 0, 0})).ValidateEnds(), 0);
}

TEST_P(ValidateEnds, StartIsAWellATankOrAPipeByItsName) {
    EXPECT_EQ(begin(drawing.addWell({0, 0, 0})).ValidateEnds(), 1);
    EXPECT_EQ(search->startKind, kWellEntity);
    EXPECT_EQ(utf8(search->systemName), "污水");
    EXPECT_EQ(begin(drawing.addTank({0, 0, 0}, {5, 5, 0}, {.system = kStorm})).ValidateEnds(), 1);
    EXPECT_EQ(search->startKind, kTankEntity);
    EXPECT_EQ(utf8(search->systemName), "雨水");
    EXPECT_EQ(begin(drawing.addPipe({0, 0, 0}, {9, 0, 0})).ValidateEnds(), 1);
    EXPECT_EQ(search->startKind, kPipeEntity);
    EXPECT_EQ(utf8(search->systemName), "污水");
}

TEST_P(ValidateEnds, NamesOfTheStartAreAskedInTheOrderWellTankPipe) {
    const AcDbObjectId all = block({{L"管道系统", L"p"}, {L"池体系统", L"t"}, {L"管井系统", L"w"}});
    EXPECT_EQ(begin(all).ValidateEnds(), 1);
    EXPECT_EQ(utf8(search->systemName), "w");
    EXPECT_EQ(search->startKind, kWellEntity);
    const AcDbObjectId two = block({{L"管道系统", L"p"}, {L"池体系统", L"t"}});
    EXPECT_EQ(begin(two).ValidateEnds(), 1);
    EXPECT_EQ(utf8(search->systemName), "t");
    EXPECT_EQ(search->startKind, kTankEntity);
}

TEST_P(ValidateEnds, EmptyTextOfTheStartMovesOn) {
    const AcDbObjectId id = block({{L"管井系统", L""}, {L"池体系统", L""}, {L"管道系统", L"p"}});
    EXPECT_EQ(begin(id).ValidateEnds(), 1);
    EXPECT_EQ(utf8(search->systemName), "p");
    EXPECT_EQ(search->startKind, kPipeEntity);
}

TEST_P(ValidateEnds, StartWithoutTextIsRefused) {
    EXPECT_EQ(begin(block({})).ValidateEnds(), 0);
    EXPECT_EQ(begin(block({{L"管井系统", L""}})).ValidateEnds(), 0);
}

TEST_P(ValidateEnds, ShortTankNameDoesNotMakeAStart) {
    EXPECT_EQ(begin(block({{L"池体", kSewer}})).ValidateEnds(), 0);
}

TEST_P(ValidateEnds, EndOfEachKindInTheSameSystemIsTaken) {
    const AcDbObjectId start = drawing.addWell({50, 0, 0});
    EXPECT_EQ(begin(start, drawing.addWell({0, 0, 0})).ValidateEnds(), 1);
    EXPECT_EQ(search->endKind, kWellEntity);
    EXPECT_EQ(begin(start, drawing.addTank({0, 0, 0}, {5, 5, 0})).ValidateEnds(), 1);
    EXPECT_EQ(search->endKind, kTankEntity);
    EXPECT_EQ(begin(start, drawing.addPipe({0, 0, 0}, {9, 0, 0})).ValidateEnds(), 1);
    EXPECT_EQ(search->endKind, kPipeEntity);
}

TEST_P(ValidateEnds, EndOfEachKindInAnotherSystemIsRefused) {
    const AcDbObjectId start = drawing.addWell({50, 0, 0});
    EXPECT_EQ(begin(start, drawing.addWell({0, 0, 0}, {.system = kStorm})).ValidateEnds(), 0);
    EXPECT_EQ(
        begin(start, drawing.addTank({0, 0, 0}, {5, 5, 0}, {.system = kStorm})).ValidateEnds(), 0);
    EXPECT_EQ(
        begin(start, drawing.addPipe({0, 0, 0}, {9, 0, 0}, {.system = kStorm})).ValidateEnds(), 0);
}

TEST_P(ValidateEnds, SystemsAreComparedExactly) {
    const AcDbObjectId start = drawing.addWell({50, 0, 0}, {.system = L"Sewer"});
    EXPECT_EQ(begin(start, drawing.addWell({0, 0, 0}, {.system = L"sewer"})).ValidateEnds(), 0);
    EXPECT_EQ(begin(start, drawing.addWell({0, 0, 0}, {.system = L"Sewer "})).ValidateEnds(), 0);
    EXPECT_EQ(begin(start, drawing.addWell({0, 0, 0}, {.system = L"Sewer"})).ValidateEnds(), 1);
}

TEST_P(ValidateEnds, WellNameOfTheEndDecidesEvenWhenItsPipeNameWouldFit) {
    const AcDbObjectId start = drawing.addWell({50, 0, 0});
    EXPECT_EQ(begin(start, block({{L"管井系统", kStorm}, {L"管道系统", kSewer}})).ValidateEnds(),
              0);
    EXPECT_EQ(begin(start, block({{L"管井系统", L""}, {L"管道系统", kSewer}})).ValidateEnds(), 1);
    EXPECT_EQ(search->endKind, kPipeEntity);
}

TEST_P(ValidateEnds, EndWithoutTextIsRefused) {
    const AcDbObjectId start = drawing.addWell({50, 0, 0});
    EXPECT_EQ(begin(start, block({})).ValidateEnds(), 0);
    EXPECT_EQ(begin(start, block({{L"管道系统", L""}})).ValidateEnds(), 0);
}

} // namespace
} // namespace module_tests
