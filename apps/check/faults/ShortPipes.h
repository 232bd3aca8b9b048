#pragma once

#include "records/BoxTree.h"
#include "SystemUnderCheck.h"

#include <vector>

namespace pipenet {

/// The pipes of a system that the searches ignore for their length.
class ShortPipes {
public:
    explicit ShortPipes(const SystemUnderCheck& under);

    /// "pipe-too-short" for each.
    void report(SystemUnderCheck& under) const;
    /// True when one of them has an end at most `reach` from `point`: what is missing there is that
    /// pipe.
    bool endNear(const AcGePoint3d& point, double reach) const;

private:
    struct Short {
        AcDbObjectId id;
        double length; ///< drawing units
        AcGePoint3d ends[2];
    };

    std::vector<Short> pipes_;
    tkvlt::BoxTree ends_;
};

} // namespace pipenet
