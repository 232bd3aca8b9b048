#include "gravity/MakeNode.h"

#include "gravity/GravityNetworkSearch.h"
#include "records/ReadBlockReference.h"
#include "records/XdataKeys.h"

namespace tkvlt {

Well MakeNode(const _Block& block, int kind) {
    Well node;
    FillNode(node, block, kind);
    return node;
}

void FillNode(Well& node, const _Block& block, int kind) {
    node._Block::operator=(block);
    BecomeNode(node, kind);
    ReadNumber(node);
}

void BecomeNode(Well& node, int kind) {
    node.isWell = kind != kTankTarget ? 1 : 0;
    node.nodeEntity = node.id;
    node.nodePoint = node.position;
    if (node.isWell != 0) {
        node.nodeRadius = node.radius;
    }
}

void ReadNumber(Well& node) {
    if (node.isWell != 0) {
        ReadXdata(node.id, xdata::kWellNumber, node.number);
    }
}

void ReadRest(Well& node) {
    ReadBlockReference(node);
    ReadNumber(node);
}

} // namespace tkvlt
