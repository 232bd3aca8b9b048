#include "gravity/MakeNode.h"

#include "gravity/GravityNetworkSearch.h"
#include "records/XdataKeys.h"

namespace tkvlt {

Well MakeNode(const _Block& block, int kind) {
    Well node;
    node.isWell = kind != kTankTarget ? 1 : 0;
    node._Block::operator=(block);
    node.nodeEntity = block.id;
    node.nodePoint = block.position;
    if (node.isWell != 0) {
        node.nodeRadius = block.radius;
        ReadXdata(block.id, xdata::kWellNumber, node.number);
    }
    return node;
}

} // namespace tkvlt
