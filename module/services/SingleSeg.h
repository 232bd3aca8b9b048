#pragma once

#include <optional>

#include "services/Seg.h"
#include "services/SinglePipeSearch.h"

namespace tkvlt {

/// The same as `GetSingleSeg`.
/// @param search gets the search that a gravity pipe needs, for whoever has more to ask of what it
///               has collected.
int FindSingleSeg(Seg& seg, const AcDbObjectId& pipe, std::optional<SinglePipeSearch>& search);

} // namespace tkvlt
