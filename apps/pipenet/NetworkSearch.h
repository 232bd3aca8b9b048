#pragma once

#include "Drawing.h"
#include "Options.h"
#include "TKVltSearchModule18.h"

#include <memory>

namespace pipenet {

/// What is asked of the module.
struct SearchRequest {
    AcDbObjectId start; ///< null when a pick found nothing
    AcDbObjectId end;   ///< null for none
    AcGePoint3d point;
};

/// What the module answered.
struct SearchOutcome {
    int result = 0;
    std::unique_ptr<SearchObject> object; ///< null without a network
};

/// The request of the command line. Throws Failure for an unknown handle.
SearchRequest searchRequest(const Drawing& drawing, const Options& options);

/// Asks the module.
SearchOutcome searchNetwork(const SearchRequest& request);

/// The gravity network of an outcome; null when it holds none.
GravitySearchObject* gravityNetwork(const SearchOutcome& outcome);

/// The pressure network of an outcome; null when it holds none.
PressureSearchObject* pressureNetwork(const SearchOutcome& outcome);

} // namespace pipenet
