#pragma once

#include "TKVltSearchModule18.h"

#include <vector>

namespace pipenet {

/// For each run of pressure networks the run that it hangs on, -1 for a root.
///
/// That is what the runs say themselves, unless a merge has taken one from the middle of the list:
/// what stood behind it has moved up then, while `parent` and `children` lead where they led. In
/// such a list each run hangs on the earlier one that ends nearest to its begin. Linear; such lists
/// by the square.
std::vector<int> runParents(CArray<PressureSeg, PressureSeg&>& runs);

} // namespace pipenet
