#pragma once

#include "networks/GravityDrawing.h"
#include "records/BoxTree.h"

#include <optional>
#include <vector>

namespace pipenet {

/// Something that a pipe could end at or go on in, and how far off it is.
struct NearTarget {
    enum class Kind { well, tank, pipe };
    Kind kind;
    int index; ///< in the pool of its kind
    AcDbObjectId entity;
    double distance; ///< drawing units
    double reach;    ///< within which it would have been found

    double shortfall() const { return distance - reach; }
};

/// Finds what lies nearest to a pipe's end within one gravity system.
class GravityTargets {
public:
    /// @param drawing turned to the system, with full pools; it must outlive this.
    explicit GravityTargets(GravityDrawing& drawing);

    /// What misses by the least; nothing when nothing lies within `farthest`.
    std::optional<NearTarget> nearest(int pipe, const AcGePoint3d& end, double farthest) const;

private:
    void keepWell(int well, const AcGePoint3d& end, std::optional<NearTarget>& best) const;
    void keepTank(int tank, const AcGePoint3d& end, std::optional<NearTarget>& best) const;
    void keepPipe(int pipe, int other, const AcGePoint3d& end,
                  std::optional<NearTarget>& best) const;

    const tkvlt::GravityNetworkSearch& search_;
    const std::vector<int>& wells_;
    const std::vector<int>& pipes_;
    tkvlt::BoxTree wellTree_;
    tkvlt::BoxTree endTree_; ///< items 2i and 2i + 1 are the ends of the i-th of `pipes_`
};

} // namespace pipenet
