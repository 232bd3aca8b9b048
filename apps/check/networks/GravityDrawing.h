#pragma once

#include "gravity/GravityNetworkSearch.h"

#include <unordered_map>
#include <vector>

namespace pipenet {

/// The drawing as a gravity search collects it, once for all systems. The current document must
/// stay as it is while this lives.
class GravityDrawing {
public:
    GravityDrawing();
    GravityDrawing(const GravityDrawing&) = delete;
    GravityDrawing& operator=(const GravityDrawing&) = delete;

    /// The search on this collection, for the system turned to last.
    tkvlt::GravityNetworkSearch& search() { return search_; }
    /// Goes over to a system, with everything collected back in the pools.
    void turnTo(const CString& system);

    /// Pool indices of the pipes and wells of a system, in drawing order.
    const std::vector<int>& pipesOf(const CString& system) const;
    const std::vector<int>& wellsOf(const CString& system) const;
    /// Pool index of a pipe or well; -1 when it was not collected.
    int pipeIndex(const AcDbObjectId& id) const;
    int wellIndex(const AcDbObjectId& id) const;

private:
    using BySystem = std::unordered_map<CString, std::vector<int>>;
    using ById = std::unordered_map<AcDbObjectId, int>;

    AcDbObjectId none_;
    AcGePoint3d origin_;
    tkvlt::GravityNetworkSearch search_;
    BySystem pipesOfSystem_;
    BySystem wellsOfSystem_;
    ById pipeIndices_;
    ById wellIndices_;
};

} // namespace pipenet
