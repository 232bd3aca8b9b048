#include "exchange/ExchangeNames.h"

#include "module/support/DrawingBuilder.h"

#include <set>

namespace {

using pipenet::ExchangeNetwork;

TEST(NamesTest, ANameIsLegalWithoutBlanksQuotesAndMarks) {
    for (const char* good : {"W1", "井4", "a.b-c_d", "1", "x[1]"}) {
        EXPECT_TRUE(pipenet::isLegalName(good, 31)) << good;
    }
    for (const char* bad : {"", "a b", "a\tb", "a;b", "a\"b", "a,b", "[a", "*", "a\x7f"}) {
        EXPECT_FALSE(pipenet::isLegalName(bad, 31)) << bad;
    }
    EXPECT_TRUE(pipenet::isLegalName(std::string(31, 'x'), 31));
    EXPECT_FALSE(pipenet::isLegalName(std::string(32, 'x'), 31));
}

class NetworkNamesTest : public module_tests::DrawingTest {
protected:
    void addNode(const char* number, bool entity = true) {
        pipenet::ExchangeNode node;
        node.number = number;
        if (entity) {
            node.entity = drawing.addWell({10.0 * static_cast<double>(network.nodes.size()), 0, 0});
        }
        network.nodes.push_back(node);
    }
    std::vector<std::string> names() {
        nameNetwork(network, pipenet::kLongestName);
        std::vector<std::string> found;
        for (const pipenet::ExchangeNode& node : network.nodes) {
            found.push_back(node.name);
        }
        return found;
    }
    ExchangeNetwork network;
};

TEST_F(NetworkNamesTest, JointsAreCountedPastTheNumbersOfWells) {
    addNode("", false);
    addNode("J2");
    addNode("", false);
    EXPECT_EQ(names(), (std::vector<std::string>{"J1", "J2", "J2_2"}));
}

TEST_F(NetworkNamesTest, ANumberThatIsAnothersHandleStaysWithItsWell) {
    addNode("");
    nameNetwork(network, pipenet::kLongestName);
    const std::string handle = network.nodes[0].name;
    addNode(handle.c_str());
    EXPECT_EQ(names(), (std::vector<std::string>{handle + "_2", handle}));
}

TEST_F(NetworkNamesTest, NamesStandOnceWhateverTheirCase) {
    for (const char* number : {"w", "W", "x", "y", "Y", "y"}) {
        addNode(number);
    }
    const std::vector<std::string> found = names();
    EXPECT_EQ(found[2], "x");
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()).size(), 6U);
    EXPECT_NE(found[0], "w");
    EXPECT_NE(found[5], "y");
}

} // namespace
