#include "report/HtmlReport.h"
#include "module/support/DrawingBuilder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <numbers>

namespace {

using module_tests::DrawingBuilder;
using nlohmann::json;
using namespace pipenet;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();
constexpr auto kSewerName = "污水";

/// A drawing in memory, put down as a file and opened as the program opens it.
class HtmlReportTest : public module_tests::DrawingTest {
protected:
    void SetUp() override {
        SystemFigures sewer;
        sewer.name = kSewerName;
        sewer.flow = 1;
        report.systems.push_back(sewer);
    }

    /// The page of the drawing and the report; `fill` completes the report once the drawing is
    /// open, as ids are those of the opened drawing.
    template<class Fill>
    std::string page(const Fill& fill) {
        const std::string path = (drawing.folder().path() / "sewers.dxf").string();
        std::string error;
        EXPECT_TRUE(host::saveDocument(acDocManager()->curDocument(), path, error)) << error;
        const Drawing opened(path);
        fill(opened);
        return htmlReport(opened, report);
    }

    std::string page() {
        return page([](const Drawing&) {});
    }

    static std::string dataText(const std::string& page) {
        const std::string begin = R"(<script id="report-data" type="application/json">)";
        const std::size_t from = page.find(begin) + begin.size();
        return page.substr(from, page.find("</script>", from) - from);
    }

    template<class Fill>
    json data(const Fill& fill) {
        return json::parse(dataText(page(fill)));
    }

    json data() {
        return data([](const Drawing&) {});
    }

    void addFinding(const AcGePoint3d& place, const std::string& sentence) {
        Finding finding;
        finding.code = "dead-end";
        finding.system = kSewerName;
        finding.place = place;
        finding.sentence = sentence;
        report.findings.push_back(finding);
    }

    CheckReport report;
};

TEST_F(HtmlReportTest, IsOnePageWithoutPlacesLeftOpen) {
    const std::string text = page();
    EXPECT_EQ(text.rfind("<!DOCTYPE html>", 0), 0U);
    EXPECT_NE(text.find("</html>"), std::string::npos);
    for (const char* open : {"{{style}}", "{{script}}", "{{data}}", "src=", "@import", "url("}) {
        EXPECT_EQ(text.find(open), std::string::npos) << open;
    }
}

TEST_F(HtmlReportTest, TextsCannotLeaveTheData) {
    const std::string hostile = "</script><script>alert(1)</script><!-- \"quoted\" \\ \xE2\x80\xA8";
    addFinding({0, 0, 0}, hostile);
    const std::string text = dataText(page());
    EXPECT_EQ(text.find('<'), std::string::npos);
    EXPECT_EQ(json::parse(text)["findings"][0]["sentence"], hostile);
}

TEST_F(HtmlReportTest, BytesThatAreNoUtf8AreReplaced) {
    addFinding({0, 0, 0}, "a\xFF"
                          "b");
    EXPECT_EQ(data()["findings"][0]["sentence"], "a\xEF\xBF\xBD"
                                                 "b");
}

TEST_F(HtmlReportTest, PlacesThatCannotBeDrawnAreNull) {
    addFinding({kNoNumber, 0, 0}, "");
    addFinding({0, kEndless, 0}, "");
    addFinding({-1.1e12, 0, 0}, "");
    addFinding({-1e12, 1e12, kNoNumber}, "");
    addFinding({0.12345678, -2, 0}, "");
    report.findings[0].measured = kNoNumber;
    report.findings[0].limit = 0.44;
    const json findings = data()["findings"];
    EXPECT_TRUE(findings[0]["at"].is_null());
    EXPECT_TRUE(findings[1]["at"].is_null());
    EXPECT_TRUE(findings[2]["at"].is_null());
    EXPECT_EQ(findings[3]["at"], json::array({-1e12, 1e12}));
    EXPECT_EQ(findings[4]["at"], json::array({0.123457, -2.0}));
    EXPECT_TRUE(findings[0]["measured"].is_null());
    EXPECT_EQ(findings[0]["limit"], 0.44);
    EXPECT_TRUE(findings[1]["limit"].is_null());
}

TEST_F(HtmlReportTest, PipesKeepTheirArcs) {
    drawing.addPipe({1, 2, 0}, {11, 2, 0});
    drawing.addArcPipe({0, 0, 0}, {4, 0, 0}, 0.25);
    const json pipes = data()["pipes"];
    ASSERT_EQ(pipes.size(), 2U);
    EXPECT_EQ(pipes[0]["curve"], json::array({1.0, 2.0, 0.0, 11.0, 2.0}));
    ASSERT_EQ(pipes[1]["curve"].size(), 5U);
    EXPECT_EQ(pipes[1]["curve"][0], 0.0);
    EXPECT_NEAR(pipes[1]["curve"][2], 0.25, 1e-12);
    EXPECT_EQ(pipes[1]["curve"][3], 4.0);
}

TEST_F(HtmlReportTest, PipesTooFarAwayAreLeftOutAndRunsCountTheOthers) {
    drawing.addPipe({0, 0, 0}, {2e12, 0, 0});
    const AcDbHandle handle = drawing.addPipe({0, 0, 0}, {9, 0, 0}).handle();
    const json found = data([&](const Drawing& opened) {
        CheckedNetwork network;
        network.system = kSewerName;
        CheckedRun run;
        run.pipes = {opened.entity(handle)};
        run.end = {9, 0, 0};
        network.runs.push_back(run);
        report.networks.push_back(network);
    });
    ASSERT_EQ(found["pipes"].size(), 1U);
    EXPECT_EQ(found["pipes"][0]["network"], 0);
    EXPECT_EQ(found["runs"][0]["pipes"], json::array({0}));
}

TEST_F(HtmlReportTest, SystemsThatAreNotCheckedAreContext) {
    drawing.addPipe({0, 0, 0}, {9, 0, 0});
    module_tests::PipeTexts storm;
    storm.system = module_tests::kStorm;
    drawing.addPipe({0, 5, 0}, {9, 5, 0}, storm);
    const json pipes = data()["pipes"];
    EXPECT_EQ(pipes[0]["system"], 0);
    EXPECT_EQ(pipes[1]["system"], -1);
    EXPECT_EQ(pipes[0]["network"], -1);
}

TEST_F(HtmlReportTest, TanksAndWellsHaveTheirSystemPlaceAndSize) {
    module_tests::WellTexts well;
    well.diameter = L"1.5";
    well.number = L"W<7>";
    drawing.addWell({3, 4, 0}, well);
    drawing.addTank({10, 10, 0}, {14, 12, 0});
    const json nodes = data()["nodes"];
    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[0]["kind"], "well");
    EXPECT_EQ(nodes[0]["number"], "W<7>");
    EXPECT_EQ(nodes[0]["system"], 0);
    EXPECT_EQ(nodes[0]["at"], json::array({3.0, 4.0}));
    // Half of 1.5 m, where a drawing unit is a metre.
    EXPECT_EQ(nodes[0]["radius"], 0.75);
    EXPECT_TRUE(nodes[0]["box"].is_null());
    EXPECT_EQ(nodes[1]["kind"], "tank");
    EXPECT_EQ(nodes[1]["system"], 0);
    EXPECT_EQ(nodes[1]["box"], json::array({10.0, 10.0, 14.0, 12.0}));
}

/// An elbow of two pipes, 6 east and then 2 north: half the way is at (4, 0).
TEST_F(HtmlReportTest, ArrowsStandHalfTheWayAndFollowTheWater) {
    const AcDbHandle first = drawing.addPipe({0, 0, 0}, {6, 0, 0}).handle();
    const AcDbHandle second = drawing.addPipe({6, 2, 0}, {6, 0, 0}).handle();
    const json runs = data([&](const Drawing& opened) {
        CheckedNetwork network;
        network.system = kSewerName;
        CheckedRun run;
        run.pipes = {opened.entity(first), opened.entity(second)};
        run.end = {6, 2, 0};
        network.runs = {run, run};
        network.runs[1].flowReversed = true;
        report.networks.push_back(network);
    })["runs"];
    EXPECT_EQ(runs[0]["arrow"], json::array({4.0, 0.0, 0.0}));
    EXPECT_EQ(runs[1]["arrow"][0], 4.0);
    EXPECT_NEAR(std::abs(runs[1]["arrow"][2].get<double>()), std::numbers::pi, 1e-12);
}

TEST_F(HtmlReportTest, RunsWithoutLengthHaveNoArrow) {
    CheckedNetwork network;
    network.system = kSewerName;
    network.runs.resize(2);
    network.runs[1].end = {kNoNumber, 0, 0};
    report.networks.push_back(network);
    const json runs = data()["runs"];
    EXPECT_TRUE(runs[0]["arrow"].is_null());
    EXPECT_TRUE(runs[1]["arrow"].is_null());
}

TEST_F(HtmlReportTest, NodesTakeTheirKindFromTheNetwork) {
    const AcDbHandle valve = drawing.addWell({0, 0, 0}).handle();
    const AcDbHandle merged = drawing.addWell({0.5, 0, 0}).handle();
    const json nodes = data([&](const Drawing& opened) {
        CheckedNetwork network;
        network.system = kSewerName;
        CheckedNode node;
        node.entity = opened.entity(valve);
        node.merged = {opened.entity(merged)};
        node.kind = CheckedNodeKind::valve;
        node.radius = kEndless;
        CheckedNode joint;
        joint.kind = CheckedNodeKind::junction;
        joint.place = {7, 8, 0};
        network.nodes = {node, joint};
        report.networks.resize(1);
        report.networks.push_back(network);
    })["nodes"];
    ASSERT_EQ(nodes.size(), 3U);
    EXPECT_EQ(nodes[0]["kind"], "valve");
    EXPECT_EQ(nodes[0]["network"], 1);
    EXPECT_EQ(nodes[0]["radius"], 0.0);
    EXPECT_EQ(nodes[1]["kind"], "well");
    EXPECT_EQ(nodes[1]["network"], 1);
    EXPECT_TRUE(nodes[2]["handle"].is_null());
    EXPECT_EQ(nodes[2]["kind"], "junction");
    EXPECT_EQ(nodes[2]["at"], json::array({7.0, 8.0}));
}

TEST_F(HtmlReportTest, FiguresAreThoseOfTheReport) {
    SystemFigures& sewer = report.systems[0];
    sewer.flag = "W";
    sewer.pipes = 4;
    sewer.length = 12.5;
    sewer.lengths = {{300, "PE", 2, 12.5}};
    sewer.lowest = ExtremePoint{9.25, {}, {1, kNoNumber, 0}};
    CheckedNetwork network;
    network.system = kSewerName;
    network.nodes.resize(3);
    network.runs.resize(2);
    network.runs[0].length = 5.0;
    network.runs[1].length = 7.5;
    report.networks.push_back(network);
    const json found = data();
    const json system = found["systems"][0];
    EXPECT_EQ(system["flow"], "gravity");
    EXPECT_EQ(system["flag"], "W");
    EXPECT_EQ(system["pipes"], 4);
    EXPECT_EQ(system["lengths"],
              json::parse(R"([{"diameter":300,"material":"PE","runs":2,"length":12.5}])"));
    EXPECT_EQ(system["lowest"], json::parse(R"({"elevation":9.25,"handle":null,"at":null})"));
    EXPECT_TRUE(system["highest"].is_null());
    EXPECT_EQ(
        found["networks"][0],
        json::parse(R"({"index":0,"system":0,"root":null,"nodes":3,"runs":2,"length":12.5})"));
    EXPECT_EQ(found["metresPerUnit"], 1.0);
    EXPECT_EQ(found["drawing"], "sewers.dxf");
}

} // namespace
