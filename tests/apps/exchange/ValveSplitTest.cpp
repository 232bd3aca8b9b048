#include "exchange/ValveSplit.h"

#include <gtest/gtest.h>

namespace {

using pipenet::ExchangeDevice;
using pipenet::ExchangeNetwork;

/// One pipe from (0, 0) to (10, 0), 20 m long, falling from 5 to 3.
ExchangeNetwork onePipe() {
    ExchangeNetwork network;
    network.nodes.resize(2);
    pipenet::ExchangeLink link;
    link.to = 1;
    link.path = {{0, 0}, {10, 0}};
    link.length = 20.0;
    link.diameter = 150;
    link.startElevation = 5.0;
    link.endElevation = 3.0;
    network.links.push_back(link);
    return network;
}

void addFitting(ExchangeNetwork& network, double x, bool isValve) {
    pipenet::ExchangeFitting fitting;
    fitting.isValve = isValve;
    fitting.at = {x, 0.0};
    fitting.number = std::to_string(static_cast<int>(x));
    network.fittings.push_back(fitting);
}

TEST(ValveSplitTest, TwoValvesMakeThreePartsInOrder) {
    ExchangeNetwork network = onePipe();
    addFitting(network, 6.0, true);
    addFitting(network, 2.0, true);
    splitAtValves(network);
    ASSERT_EQ(network.links.size(), 5U);
    const double lengths[] = {4.0, 0.0, 8.0, 0.0, 8.0};
    for (std::size_t i = 0; i < 5; ++i) {
        const bool isValve = i % 2 == 1;
        EXPECT_NEAR(network.links[i].length, lengths[i], 1e-12);
        EXPECT_EQ(network.links[i].device, isValve ? ExchangeDevice::valve : ExchangeDevice::none);
        EXPECT_EQ(network.links[i].diameter, 150);
        if (i > 0) {
            EXPECT_EQ(network.links[i].from, network.links[i - 1].to);
        }
    }
    EXPECT_EQ(network.links[1].number, "2");
    EXPECT_EQ(network.links.front().from, 0U);
    EXPECT_EQ(network.links.back().to, 1U);
    EXPECT_TRUE(network.fittings.empty());
    ASSERT_EQ(network.nodes.size(), 6U);
    EXPECT_NEAR(*network.nodes[network.links[1].from].lowestPipe, 4.6, 1e-12);
    EXPECT_NEAR(*network.nodes[network.links[3].to].lowestPipe, 3.8, 1e-12);
}

TEST(ValveSplitTest, MetersStayOnThePartTheyStandOn) {
    ExchangeNetwork network = onePipe();
    addFitting(network, 8.0, false);
    addFitting(network, 5.0, true);
    addFitting(network, 1.0, false);
    splitAtValves(network);
    ASSERT_EQ(network.links.size(), 3U);
    ASSERT_EQ(network.fittings.size(), 2U);
    EXPECT_EQ(network.fittings[0].number, "1");
    EXPECT_EQ(network.fittings[0].link, 0U);
    EXPECT_EQ(network.fittings[1].link, 2U);
}

TEST(ValveSplitTest, APipeThatIsAValveStaysWhole) {
    ExchangeNetwork network = onePipe();
    network.links[0].device = ExchangeDevice::valve;
    addFitting(network, 5.0, true);
    splitAtValves(network);
    EXPECT_EQ(network.links.size(), 1U);
    EXPECT_EQ(network.nodes.size(), 2U);
}

} // namespace
