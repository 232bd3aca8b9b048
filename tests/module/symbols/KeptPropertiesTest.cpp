#include "host/dxf/SavedDrawing.h"
#include "module/utilities/UtilitiesTest.h"

#include "utilities/BreakLine.h"
#include "utilities/PelMultiPL2DblPl.h"

#include <filesystem>

namespace module_tests {
namespace {

/// Entities that carry more than the host models, in a file of make_copy_case.py.
class KeptPropertiesTest : public UtilitiesTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        const std::string path = drawing.folder().text() + "/kept.dxf";
        dxf_test::runScript("make_copy_case.py", {path, "R2018", GetParam()});
        drawing.openDxfFile(path);
    }

    /// The other library's word for the properties in entity `each`.
    static std::string areKept(const std::string& each) {
        return "[(" + each + ".dxf.lineweight, " + each + ".dxf.ltscale, " + each +
               ".dxf.thickness, " + each + ".dxf.true_color, " + each + ".dxf.color_name, " + each +
               ".dxf.transparency, " + each + ".dxf.linetype, " + each + ".get_xdata('PLAIN'))";
    }
    static inline const std::string kKept =
        "[(50, .5, 2, 0x0A141E, 'BOOK$Blue', 0x0200007F, 'DASHED', "
        "[(1000, 'text'), (1071, 100000)])]";

    void ask(const std::vector<std::string>& questions) {
        dxf_test::askAnother(*acDocManager()->curDocument()->database(),
                             std::string("kept_") + GetParam(), questions);
    }
};

TEST_P(KeptPropertiesTest, PiecesOfASplitPolylineCarryAllThatTheWholeOneDid) {
    const AcDbObjectId whole = entities().at(8);
    ASSERT_EQ(PelMultiPL2DblPl(whole), 1);
    ask({"len(space) == 14", // one goes, three pieces come
         areKept("e") + " for e in space[-3:]] == 3 * " + kKept,
         // the line of the generated linetype's flag, 128, and that of a closed one
         "[e.dxf.flags for e in space[-3:]] == [129, 129, 129]",
         "[e.dxf.elevation for e in space[-3:]] == [2.5, 2.5, 2.5]",
         "list(map(tuple, space[-3])) == [(0, 0, 1, 2, .5), (10, 0, 2, 2, 0)]",
         "list(map(tuple, space[-2])) == [(10, 0, 2, 2, 0), (10, 8, 3, .5, -.5)]",
         "list(map(tuple, space[-1])) == [(10, 8, 3, .5, -.5), (0, 8, 4, 0, 0)]"});
}

TEST_P(KeptPropertiesTest, PiecesOfAPolylineOfOneWidthKeepIt) {
    ASSERT_EQ(PelMultiPL2DblPl(entities().at(9)), 1);
    ask({"[e.dxf.const_width for e in space[-2:]] == [.25, .25]",
         "[list(e.vertices()) for e in space[-2:]] == [[(0, 0), (5, 0)], [(5, 0), (5, 5)]]"});
}

TEST_P(KeptPropertiesTest, PiecesOfABrokenLineCarryAllThatTheWholeOneDid) {
    AcDbObjectIdArray lines;
    lines.append(entities().at(0));
    lines.append(addLine({50, -50, 0}, {50, 50, 0}));
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 4);
    ask({"[e.dxftype() for e in space[-3:]] == ['LINE', 'LINE', 'LINE']",
         // 0 to 100, cut at 50; the crossing one of this process has nothing to keep
         "tuple(space[0].dxf.end) == (50, 0, 0)", "tuple(space[-1].dxf.start) == (100, 0, 0)",
         "tuple(space[-1].dxf.end) == (50, 0, 0)",
         areKept("e") + " for e in (space[0], space[-1])] == 2 * " + kKept,
         "space[-2].dxf.hasattr('lineweight') == False"});
}

TEST_P(KeptPropertiesTest, PartsOfALineTakenApartByTheHostCarryAllThatTheWholeOneDid) {
    ads_name line;
    acdbGetAdsName(line, entities().at(0));
    ads_point from = {30, 0, 0};
    ads_point to = {60, 0, 0};
    ASSERT_EQ(acedCommand(RTSTR, L"break", RTENAME, line, RTPOINT, from, RTPOINT, to, 0), RTNORM);
    ask({"len(space) == 13", "tuple(space[0].dxf.end) == (30, 0, 0)",
         "tuple(space[-1].dxf.start) == (60, 0, 0)",
         areKept("e") + " for e in (space[0], space[-1])] == 2 * " + kKept});
}

TEST_P(KeptPropertiesTest, MiddleOfALineTrimmedAwayLeavesTwoPartsThatCarryAll) {
    ads_name line;
    ads_name circle;
    acdbGetAdsName(line, entities().at(0));
    // A circle about (50, 0) with the radius 10 meets the line at 40 and 60.
    const AcDbObjectId edge = drawing.addEntity(new AcDbCircle({50, 0, 0}, {0, 0, 1}, 10), {});
    acdbGetAdsName(circle, edge);
    ads_point at = {50, 0, 0};
    ASSERT_EQ(acedCommand(RTSTR, L"trim", RTENAME, circle, RTSTR, L"", RTLB, RTENAME, line, RTPOINT,
                          at, RTLE, RTSTR, L"", 0),
              RTNORM);
    ask({"len(space) == 14", "abs(space[0].dxf.end.x - 40) < 1e-9",
         "abs(space[-1].dxf.start.x - 60) < 1e-9", "space[-1].dxf.end.x == 100",
         areKept("e") + " for e in (space[0], space[-1])] == 2 * " + kKept});
}

TEST_P(KeptPropertiesTest, CircleTakenApartBecomesAnArcThatCarriesAll) {
    ads_name circle;
    acdbGetAdsName(circle, entities().at(1));
    // About (5, 6) with the radius 4: from the top round by the left to the right is taken out.
    ads_point from = {5, 10, 0};
    ads_point to = {9, 6, 0};
    ASSERT_EQ(acedCommand(RTSTR, L"break", RTENAME, circle, RTPOINT, from, RTPOINT, to, 0), RTNORM);
    ask({"len(space) == 12", "space[1].dxftype() == 'ARC'", "space[1].dxf.radius == 4",
         "abs(space[1].dxf.start_angle) < 1e-9", "abs(space[1].dxf.end_angle - 90) < 1e-9",
         areKept("e") + " for e in (space[1],)] == " + kKept});
}

INSTANTIATE_TEST_SUITE_P(Forms, KeptPropertiesTest, ::testing::Values("text", "binary"),
                         [](const auto& instance) { return std::string(instance.param); });

} // namespace
} // namespace module_tests
