#pragma once

#include "Drawing.h"
#include "exchange/ExchangeNetwork.h"
#include "TKVltSearchModule18.h"

#include <vector>

namespace pipenet {

/// The wells and tanks of a drawing at which pipes of a main may end. Wells with valves and meters
/// stand on pipes, not at their ends, and are left out.
class NodeSites {
public:
    NodeSites() = default;
    NodeSites(const Drawing& drawing, const CString& system);

    /// A node where pipes end: the tank that holds the place, else the nearest well around it, else
    /// a mere joint. Cost: a look at each tank, and at the wells in a strip as wide as the widest.
    ExchangeNode nodeAt(const PlanPoint& place, double metresOfUnit) const;

private:
    struct Site {
        AcDbObjectId id;
        bool isTank = false;
        PlanPoint at;
        double radius = 0.0;
        PlanPoint min; ///< of a tank
        PlanPoint max;
    };
    const Site* nearestWell(const PlanPoint& place) const;
    bool holds(const Site& site, const PlanPoint& place) const;

    std::vector<Site> tanks_;
    std::vector<Site> wells_; ///< from left to right
    double widest_ = 0.0;     ///< radius of a well
};

} // namespace pipenet
