#pragma once

#include "CheckApi.h"
#include "CheckReport.h"

#include <optional>
#include <string>

namespace pipenet {

/// Why a search gave no network.
struct StoppedSearch {
    std::string
        step; ///< that failed: "validation", "collection", "root", "walk" ...; empty for none
    std::optional<Finding> finding; ///< the one that stopped it; nothing when none fits
};

/// Goes through a search of the current document step by step to the one that fails, and looks
/// among the findings of its system for the one that is to blame. Costs a search and a check of the
/// system.
///
/// @param start what the search began at; its system must be known.
/// @param end the end entity; null for none.
/// @param point the picked point.
PIPENET_CHECK_API StoppedSearch stoppedSearch(const AcDbObjectId& start, const AcDbObjectId& end,
                                              const AcGePoint3d& point);

} // namespace pipenet
