#pragma once

#include "frame/GravitySearchObject.h"

#include <utility>
#include <vector>

namespace module_tests {

/// Ids by which a test knows wells and segments again, wherever they stand.
AcDbObjectId wellName(int number);
AcDbObjectId segName(int number);
/// A place of its own for each well.
AcGePoint3d wellPlace(int number);

/// Fills an empty network: wells 0 to `wells` - 1, and segment i from the first to the second well
/// of `segs[i]`, each well's segments in this order. Well n stands for `wellName(n)`, segment i
/// holds the one pipe `segName(i)`, and the root is well 0.
void fillNetwork(GravitySearchObject& network, int wells,
                 const std::vector<std::pair<int, int>>& segs);

} // namespace module_tests
