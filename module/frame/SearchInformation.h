#pragma once

#include "frame/GetSearchInformation.h"

namespace tkvlt {

class GravityNetworkSearch;

/// The same as `GetSearchInformation`.
/// @param collected a search of which a gravity network takes what it has collected, as
///                  `GravityNetworkSearch::RunAgain` says; null to have the drawing read.
int SearchInformation(SearchObject*& object, AcDbObjectId& startId, AcDbObjectId& endId,
                      AcGePoint3d point, GravityNetworkSearch* collected);

} // namespace tkvlt
