#include "gravity/MakeNode.h"

#include "gravity/GravityNetworkSearch.h"
#include "records/XdataKeys.h"

namespace tkvlt {

Well MakeNode(const _Block& block, int kind) {
    Well node;
    node._Block::operator=(block);
    BecomeNode(node, kind);
    return node;
}

void BecomeNode(Well& node, int kind) {
    node.isWell = kind != kTankTarget ? 1 : 0;
    node.nodeEntity = node.id;
    node.nodePoint = node.position;
    if (node.isWell != 0) {
        node.nodeRadius = node.radius;
        ReadXdata(node.id, xdata::kWellNumber, node.number);
    }
}

} // namespace tkvlt
