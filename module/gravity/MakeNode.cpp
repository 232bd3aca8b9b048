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
    const ReadEntity entity(node.id);
    if (!entity) {
        return;
    }
    if (entity.get()->isKindOf(AcDbBlockReference::desc())) {
        ReadBlockReference(node, *static_cast<const AcDbBlockReference*>(entity.get()));
    }
    if (node.isWell != 0) {
        ReadXdata(entity.get(), xdata::kWellNumber, node.number);
    }
}

} // namespace tkvlt
