#include "CheckedTown.h"

namespace check_tests {

using pipenet::CheckReport;
using pipenet::SystemFigures;

class FiguresTest : public StreetTest {};

TEST_F(FiguresTest, ASystemIsSummedUpBySizeAndMaterial) {
    well(0);
    well(1);
    well(2);
    PipeTexts texts = soundPipe();
    pipe(0, texts);
    pipe(1, texts);
    // A network of its own: 32 m of DN200, and 6 m of DN300 of no material into a tank.
    well(10);
    well(11);
    texts.diameter = L"200";
    pipe(10, texts);
    texts.diameter = L"300";
    texts.material = nullptr;
    drawing.addPipe({33.0 * 11 + 0.5, 0.0, 0.0}, {33.0 * 11 + 6.5, 0.0, 0.0}, texts);
    module_tests::TankTexts tank;
    tank.length = L"4000";
    drawing.addTank({33.0 * 11 + 6.25, -1.0, 0.0}, {33.0 * 11 + 10.25, 1.0, 0.0}, tank);
    const CheckReport checked = report();
    ASSERT_EQ(checked.systems.size(), 1U);
    const SystemFigures& figures = checked.systems.front();
    EXPECT_EQ(figures.name, "污水");
    EXPECT_EQ(figures.flow, 1);
    EXPECT_EQ(figures.flag, "W");
    EXPECT_EQ(figures.pipes, 4);
    EXPECT_EQ(figures.wells, 5);
    EXPECT_EQ(figures.tanks, 1);
    EXPECT_EQ(figures.networks, 2);
    EXPECT_NEAR(figures.length, 102.0, 1e-9);
    ASSERT_EQ(figures.lengths.size(), 3U);
    EXPECT_EQ(figures.lengths[0].diameter, 200);
    EXPECT_EQ(figures.lengths[0].material, "PE");
    EXPECT_EQ(figures.lengths[0].runs, 1);
    EXPECT_NEAR(figures.lengths[0].length, 32.0, 1e-9);
    EXPECT_EQ(figures.lengths[1].diameter, 300);
    EXPECT_EQ(figures.lengths[1].material, "");
    EXPECT_EQ(figures.lengths[1].runs, 1);
    EXPECT_NEAR(figures.lengths[1].length, 6.0, 1e-9);
    EXPECT_EQ(figures.lengths[2].diameter, 300);
    EXPECT_EQ(figures.lengths[2].material, "PE");
    EXPECT_EQ(figures.lengths[2].runs, 2);
    EXPECT_NEAR(figures.lengths[2].length, 64.0, 1e-9);
}

TEST_F(FiguresTest, TheExtremesStandAtTheEndThatHasThem) {
    well(0);
    well(1);
    well(2);
    PipeTexts texts = soundPipe();
    texts.startElevation = L"12.5";
    texts.endElevation = L"11";
    const AcDbObjectId upper = pipe(0, texts);
    texts.startElevation = L"11";
    texts.endElevation = L"9.25";
    texts.flow = L"ES"; // the elevations belong to the ends all the same
    const AcDbObjectId lower = pipe(1, texts);
    const CheckReport checked = report();
    ASSERT_EQ(checked.systems.size(), 1U);
    const SystemFigures& figures = checked.systems.front();
    ASSERT_TRUE(figures.lowest && figures.highest);
    EXPECT_EQ(figures.highest->elevation, 12.5);
    EXPECT_EQ(figures.highest->entity, upper);
    EXPECT_TRUE(module_tests::samePoint(figures.highest->place, {0.5, 0.0, 0.0}));
    EXPECT_EQ(figures.lowest->elevation, 9.25);
    EXPECT_EQ(figures.lowest->entity, lower);
    EXPECT_TRUE(module_tests::samePoint(figures.lowest->place, {65.5, 0.0, 0.0}));
}

TEST_F(FiguresTest, AnElevationThatIsMissingOrSpoiltIsNoExtreme) {
    well(0);
    well(1);
    well(2);
    pipe(0, soundPipe());
    PipeTexts texts = soundPipe();
    texts.endElevation = L"?";
    const AcDbObjectId spoilt = pipe(1, texts);
    CheckReport checked = report();
    ASSERT_EQ(checked.systems.size(), 1U);
    ASSERT_TRUE(checked.systems.front().lowest.has_value());
    EXPECT_EQ(checked.systems.front().lowest->elevation, 10.0);
    drawing.setText(spoilt, L"终点标高", L"");
    checked = report();
    EXPECT_EQ(checked.systems.front().lowest->elevation, 10.0);
}

TEST_F(FiguresTest, SystemsStandInOrderOfFirstOccurrenceAndOneAloneCanBeAsked) {
    PipeTexts texts = soundPipe();
    texts.system = module_tests::kSupply;
    drawing.addPipe({0.0, 9.0, 0.0}, {32.0, 9.0, 0.0}, texts);
    well(0);
    well(1);
    pipe(0, soundPipe());
    const CheckReport all = report();
    ASSERT_EQ(all.systems.size(), 2U);
    EXPECT_EQ(all.systems[0].name, "给水");
    EXPECT_EQ(all.systems[0].flow, 0);
    EXPECT_EQ(all.systems[0].flag, "J");
    EXPECT_EQ(all.systems[1].name, "污水");
    const CheckReport one = pipenet::checkDrawing("污水");
    ASSERT_EQ(one.systems.size(), 1U);
    EXPECT_EQ(one.systems[0].name, "污水");
    EXPECT_TRUE(pipenet::checkDrawing("雨水").systems.empty());
}

} // namespace check_tests
