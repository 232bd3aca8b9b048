// Whole models: the tree that is found in a drawing is the graph that the drawing was made from.

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"
#include "TKVltSearchModule18.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

namespace module_tests {

namespace {

using nlohmann::json;

std::string handleOf(AcDbObjectId id) {
    ACHAR digits[17];
    id.handle().getIntoAsciiBuffer(digits);
    return host_text::toUtf8(digits);
}

std::set<std::string> handlesOf(const AcArray<AcDbObjectId>& ids) {
    std::set<std::string> handles;
    for (const AcDbObjectId& id : idsOf(ids)) {
        handles.insert(handleOf(id));
    }
    return handles;
}

std::set<std::string> handlesOf(const Well& node) {
    std::set<std::string> handles = handlesOf(node.mergedEntities);
    handles.insert(handleOf(node.nodeEntity));
    return handles;
}

class ModelNetworkTest : public ::testing::Test {
protected:
    void open(const std::string& name) {
        const std::string folder = TKVLT_EXAMPLES_DIR "/";
        drawing.openDxfFile(folder + name + ".dxf");
        std::ifstream file(folder + name + ".truth.json");
        ASSERT_TRUE(file);
        truth = json::parse(file);
        for (const json& node : truth["nodes"]) {
            for (const json& handle : node["handles"]) {
                nodeOfHandle[handle.get<std::string>()] = &node;
            }
        }
        for (const json& edge : truth["edges"]) {
            edgeOfPipe[edge["pipes"][0].get<std::string>()] = &edge;
        }
    }

    /// Searches from an entity and compares everything with the truth of its system.
    void expectModel(const std::string& start) {
        SCOPED_TRACE("from " + start);
        AcDbObjectId startId = drawing.byHandle(host_text::fromUtf8(start).c_str());
        ASSERT_FALSE(startId.isNull());
        AcDbObjectId none;
        SearchObject* object = nullptr;
        ASSERT_EQ(GetSearchInformation(object, startId, none, AcGePoint3d()), 1);
        const std::unique_ptr<SearchObject> owner(object);
        auto& network = static_cast<GravitySearchObject&>(*object);
        const std::string system = nodeOfHandle.at(start)->at("system");
        expectNodes(network, system);
        expectSegs(network, system);
    }

    void expectEveryRoot(const std::string& system, std::size_t step) {
        std::size_t roots = 0;
        const json& nodes = truth["nodes"];
        for (std::size_t i = 0; i < nodes.size(); i += step) {
            if (nodes[i]["system"] == system) {
                expectModel(nodes[i]["handles"][0]);
                ++roots;
            }
        }
        EXPECT_GT(roots, std::size_t{5});
    }

    DrawingBuilder drawing;
    json truth;
    std::map<std::string, const json*> nodeOfHandle;
    std::map<std::string, const json*> edgeOfPipe; ///< by the first of its pipes

private:
    /// The truth has the number of a node's first block; W15A is the only other block of a node.
    static std::string numberOf(const std::string& handle, const json& node) {
        return handle != node["handles"][0] ? "W15A" : node["number"].get<std::string>();
    }

    std::size_t countOf(const char* list, const std::string& system) const {
        return static_cast<std::size_t>(
            std::count_if(truth[list].begin(), truth[list].end(),
                          [&](const json& item) { return item["system"] == system; }));
    }

    void expectNodes(GravitySearchObject& network, const std::string& system) {
        ASSERT_EQ(static_cast<std::size_t>(network.wells.GetSize()), countOf("nodes", system));
        std::set<std::string> seen;
        for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
            const Well& node = network.wells[i];
            const json& want = *nodeOfHandle.at(handleOf(node.nodeEntity));
            SCOPED_TRACE(want["name"].get<std::string>());
            EXPECT_TRUE(seen.insert(want["name"]).second);
            EXPECT_EQ(handlesOf(node), want["handles"].get<std::set<std::string>>());
            EXPECT_EQ(node.isWell, want["kind"] == "well" ? 1 : 0);
            EXPECT_EQ(utf8(node.number), numberOf(handleOf(node.nodeEntity), want));
            EXPECT_EQ(node.isSquareWell, want["square"].get<bool>() ? 1 : 0);
            EXPECT_NEAR(node.nodeRadius, want["radius"].get<double>(), 1e-6);
            EXPECT_TRUE(samePoint(node.nodePoint, {want["point"][0], want["point"][1], 0.0}, 1e-6));
        }
    }

    void expectSegs(GravitySearchObject& network, const std::string& system) {
        ASSERT_EQ(static_cast<std::size_t>(network.segs.GetSize()), countOf("edges", system));
        std::set<std::string> seen;
        for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
            const std::set<std::string> pipes = handlesOf(network.segs[i].pipeIds);
            const json* edge = nullptr;
            for (const std::string& pipe : pipes) {
                const auto found = edgeOfPipe.find(pipe);
                edge = found != edgeOfPipe.end() ? found->second : edge;
            }
            ASSERT_NE(edge, nullptr);
            SCOPED_TRACE("pipes " + edge->at("pipes").dump());
            EXPECT_TRUE(seen.insert(edge->at("pipes")[0]).second);
            EXPECT_EQ(pipes, edge->at("pipes").get<std::set<std::string>>());
            expectDirection(network, network.segs[i], *edge);
            expectValues(network.segs[i]);
        }
    }

    void expectDirection(GravitySearchObject& network, const GravitySeg& seg, const json& edge) {
        const int up = seg.flowReversed == 0 ? seg.startWell : seg.endWell;
        const int down = seg.flowReversed == 0 ? seg.endWell : seg.startWell;
        EXPECT_EQ(nodeOfHandle.at(handleOf(network.wells[up].nodeEntity))->at("name"),
                  edge["upstream"]);
        EXPECT_EQ(nodeOfHandle.at(handleOf(network.wells[down].nodeEntity))->at("name"),
                  edge["downstream"]);
    }

    /// The first pipe of a segment speaks for it; its length is that of all.
    void expectValues(const GravitySeg& seg) {
        const json& pipe = truth["pipes"][handleOf(seg.pipeIds.at(0))];
        const double start = pipe["startElevation"];
        const double end = pipe["endElevation"];
        EXPECT_EQ(seg.startElevation, std::min(start, end));
        EXPECT_EQ(seg.endElevation, std::max(start, end));
        EXPECT_EQ(seg.diameter, pipe["diameter"].get<int>());
        EXPECT_EQ(seg.slope, pipe["slope"].get<double>());
        EXPECT_EQ(utf8(seg.material), pipe["material"].get<std::string>());
        EXPECT_EQ(utf8(seg.flowText), pipe["flow"].get<std::string>());
        double length = 0.0;
        for (const std::string& handle : handlesOf(seg.pipeIds)) {
            length += truth["pipes"][handle]["length"].get<double>();
        }
        EXPECT_NEAR(seg.length, length, 1e-5);
    }
};

} // namespace

TEST_F(ModelNetworkTest, BrambletonFromItsOutfall) {
    open("brambleton");
    expectModel("1176");
}

TEST_F(ModelNetworkTest, BrambletonFromOtherNodes) {
    open("brambleton");
    expectEveryRoot("雨水", 40);
}

TEST_F(ModelNetworkTest, TownSewerFromTheSepticTank) {
    open("town");
    expectModel("501");
}

TEST_F(ModelNetworkTest, TownStormDrainFromItsTank) {
    open("town");
    expectModel("502");
}

TEST_F(ModelNetworkTest, TownFromEveryNode) {
    open("town");
    expectEveryRoot("污水", 1);
    expectEveryRoot("雨水", 1);
}

TEST_F(ModelNetworkTest, ModelInMetresFromEveryNode) {
    open("epa-user1");
    expectModel("103C");
    expectEveryRoot("雨水", 1);
}

} // namespace module_tests
