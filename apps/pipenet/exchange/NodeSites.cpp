#include "exchange/NodeSites.h"

#include "exchange/ReadNetwork.h"
#include "HandleText.h"
#include "records/XdataKeys.h"

#include <algorithm>
#include <limits>

namespace pipenet {

namespace {

constexpr double kAtRim = 0.0001; ///< drawing units, as the search takes a well's rim

bool isFitting(const AcDbObjectId& well) {
    CString block;
    GetBlockRefName(well, block);
    return block == L"VLT_WELL_05" || block == L"VLT_WELL_15";
}

} // namespace

NodeSites::NodeSites(const Drawing& drawing, const CString& system) {
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        const bool isTank = entity.kind == EntityKind::tank;
        const bool isWell =
            entity.kind == EntityKind::well && entity.systemName == system && !isFitting(entity.id);
        if (isTank || isWell) {
            const _Block block(entity.id, CString(), CString());
            (isTank ? tanks_ : wells_)
                .push_back({entity.id, isTank, inPlan(block.position), block.radius,
                            inPlan(block.extents.minPoint()), inPlan(block.extents.maxPoint())});
        }
    }
    std::stable_sort(wells_.begin(), wells_.end(),
                     [](const Site& a, const Site& b) { return a.at.x < b.at.x; });
    for (const Site& well : wells_) {
        widest_ = std::max(widest_, well.radius);
    }
}

bool NodeSites::holds(const Site& site, const PlanPoint& place) const {
    if (site.isTank) {
        return place.x >= site.min.x && place.x <= site.max.x && place.y >= site.min.y &&
               place.y <= site.max.y;
    }
    return distance(site.at, place) <= site.radius + kAtRim;
}

const NodeSites::Site* NodeSites::nearestWell(const PlanPoint& place) const {
    const Site* found = nullptr;
    double nearest = std::numeric_limits<double>::infinity();
    const double reach = widest_ + kAtRim;
    auto well = std::lower_bound(wells_.begin(), wells_.end(), place.x - reach,
                                 [](const Site& site, double left) { return site.at.x < left; });
    for (; well != wells_.end() && well->at.x <= place.x + reach; ++well) {
        const double here = distance(well->at, place);
        if (here < nearest && holds(*well, place)) {
            nearest = here;
            found = &*well;
        }
    }
    return found;
}

ExchangeNode NodeSites::nodeAt(const PlanPoint& place, double metresOfUnit) const {
    ExchangeNode node;
    node.at = place;
    const Site* found = nullptr;
    for (const Site& tank : tanks_) {
        found = found == nullptr && holds(tank, place) ? &tank : found;
    }
    if (found == nullptr) {
        found = nearestWell(place);
    }
    if (found != nullptr) {
        node.entity = found->id;
        node.at = found->at;
        node.kind = found->isTank ? ExchangeNodeKind::tank : ExchangeNodeKind::well;
        node.number = utf8(XdataText(node.entity, xdata::kWellNumber));
        readNodeTexts(node, metresOfUnit);
    }
    return node;
}

} // namespace pipenet
