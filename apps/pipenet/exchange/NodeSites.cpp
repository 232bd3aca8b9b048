#include "exchange/NodeSites.h"

#include "exchange/ReadNetwork.h"
#include "HandleText.h"
#include "records/XdataKeys.h"

#include <limits>

namespace pipenet {

namespace {

constexpr double kAtRim = 0.0001; ///< drawing units, as the search takes a well's rim

bool isFitting(const AcDbObjectId& well) {
    CString block;
    GetBlockRefName(well, block);
    return block == L"VLT_WELL_05" || block == L"VLT_WELL_15";
}

PlanPoint inPlan(const AcGePoint3d& point) {
    return {point.x, point.y};
}

} // namespace

NodeSites::NodeSites(const Drawing& drawing, const CString& system) {
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        const bool isTank = entity.kind == EntityKind::tank;
        const bool isWell =
            entity.kind == EntityKind::well && entity.systemName == system && !isFitting(entity.id);
        if (isTank || isWell) {
            const _Block block(entity.id, CString(), CString());
            sites_.push_back({entity.id, isTank, inPlan(block.position), block.radius,
                              inPlan(block.extents.minPoint()), inPlan(block.extents.maxPoint())});
        }
    }
}

bool NodeSites::holds(const Site& site, const PlanPoint& place) const {
    if (site.isTank) {
        return place.x >= site.min.x && place.x <= site.max.x && place.y >= site.min.y &&
               place.y <= site.max.y;
    }
    return distance(site.at, place) <= site.radius + kAtRim;
}

ExchangeNode NodeSites::nodeAt(const PlanPoint& place, double metresOfUnit) const {
    ExchangeNode node;
    node.at = place;
    double nearest = std::numeric_limits<double>::infinity();
    for (const Site& site : sites_) {
        // A tank stands before any well.
        const double rank = site.isTank ? -1.0 : distance(site.at, place);
        if (rank < nearest && holds(site, place)) {
            nearest = rank;
            node.entity = site.id;
            node.at = site.at;
            node.kind = site.isTank ? ExchangeNodeKind::tank : ExchangeNodeKind::well;
        }
    }
    if (!node.entity.isNull()) {
        node.number = utf8(XdataText(node.entity, xdata::kWellNumber));
        readNodeTexts(node, metresOfUnit);
    }
    return node;
}

} // namespace pipenet
