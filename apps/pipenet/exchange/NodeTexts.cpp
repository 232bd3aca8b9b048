#include "exchange/OwnTexts.h"
#include "exchange/PipeRun.h"
#include "exchange/ReadNetwork.h"
#include "HandleText.h"
#include "records/XdataKeys.h"

#include <algorithm>

namespace pipenet {

void readNodeTexts(ExchangeNode& node, double metresOfUnit) {
    node.bottom = heightText(node.entity, own_texts::kBottom);
    node.ground = heightText(node.entity, own_texts::kGround);
    if (node.kind != ExchangeNodeKind::tank) {
        return;
    }
    node.number = utf8(XdataText(node.entity, xdata::kTank));
    node.waterLevel = heightText(node.entity, own_texts::kWaterLevel);
    const _Block block(node.entity, CString(), CString());
    const AcGePoint3d min = block.extents.minPoint();
    const AcGePoint3d max = block.extents.maxPoint();
    node.length = std::max(0.0, max.x - min.x) * metresOfUnit;
    node.width = std::max(0.0, max.y - min.y) * metresOfUnit;
}

void collectPipeHeights(ExchangeNetwork& network) {
    const auto lower = [](std::optional<double>& lowest, const std::optional<double>& height) {
        if (height && (!lowest || *height < *lowest)) {
            lowest = height;
        }
    };
    for (const ExchangeLink& link : network.links) {
        lower(network.nodes[link.from].lowestPipe, link.startElevation);
        lower(network.nodes[link.to].lowestPipe, link.endElevation);
    }
}

} // namespace pipenet
