// The networks of the example drawings against what their layouts and models say.

#include "CheckTest.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <map>

namespace check_tests {

using nlohmann::json;

class ExampleNetworksTest : public CheckTest {
protected:
    void open(const std::string& name) {
        const std::string base = std::string(TKVLT_EXAMPLES_DIR) + "/" + name;
        drawing.openDxfFile(base + ".dxf");
        std::ifstream file(base + ".truth.json");
        truth = json::parse(file);
        check();
    }

    /// Runs of each gravity system by their pipes.
    static std::map<std::string, std::set<std::set<std::string>>>
    runsOf(const std::vector<CheckedNetwork>& networks) {
        std::map<std::string, std::set<std::set<std::string>>> runs;
        for (const CheckedNetwork& network : networks) {
            for (const pipenet::CheckedRun& run : network.runs) {
                if (!network.isPressure) {
                    runs[network.system].insert(handlesOf(run.pipes));
                }
            }
        }
        return runs;
    }

    std::map<std::string, std::set<std::set<std::string>>> runsOfTruth() const {
        std::map<std::string, std::set<std::set<std::string>>> runs;
        for (const json& edge : truth["edges"]) {
            runs[edge["system"]].insert(edge["pipes"].get<std::set<std::string>>());
        }
        return runs;
    }

    static std::set<std::string> handlesOf(const Ids& ids) {
        std::set<std::string> handles;
        for (const AcDbObjectId& id : ids) {
            wchar_t text[17];
            id.handle().getIntoAsciiBuffer(text);
            handles.insert(module_tests::utf8(CString(text)));
        }
        return handles;
    }

    json truth;
};

TEST_F(ExampleNetworksTest, GravityNetworksAreWhole) {
    for (const char* name : {"brambleton", "epa-user1", "town"}) {
        SCOPED_TRACE(name);
        open(name);
        auto expected = runsOfTruth();
        expected.erase("给水");
        EXPECT_EQ(runsOf(report.networks), expected);
    }
}

/// Searched where the water comes from the reservoir, the tree is accepted and as its truth says.
TEST_F(ExampleNetworksTest, PressureTreeIsAccepted) {
    open("l-town-tree");
    ASSERT_EQ(report.networks.size(), 1U);
    EXPECT_EQ(handlesOf({report.networks[0].root}),
              std::set<std::string>{truth["pressure"][0]["pick"]["pipe"].get<std::string>()});
    EXPECT_EQ(report.networks[0].runs.size(), truth["pressure"][0]["runs"].size());
    EXPECT_TRUE(found("cycle").empty());
    EXPECT_TRUE(found("turned-run").empty());
}

/// Each link that the tree leaves out closes a ring.
TEST_F(ExampleNetworksTest, PressureLoopsAreRingsOneForOne) {
    open("l-town-whole");
    EXPECT_EQ(found("cycle").size(), truth["pressure"][0]["loops"].size());
}

TEST_F(ExampleNetworksTest, WhatLeadsNowhereIsLoose) {
    open("town");
    EXPECT_EQ(handlesOf(report.loose), truth["leadNowhere"].get<std::set<std::string>>());
}

} // namespace check_tests
