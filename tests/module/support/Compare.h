#pragma once

#include "EmbeddedHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace module_tests {

inline constexpr double kPi = 3.141592653589793;

/// Whether the points (vectors) agree within `tolerance` in each coordinate; a failure shows both.
::testing::AssertionResult samePoint(const AcGePoint3d& actual, const AcGePoint3d& expected,
                                     double tolerance = 1e-9);
::testing::AssertionResult sameVector(const AcGeVector3d& actual, const AcGeVector3d& expected,
                                      double tolerance = 1e-9);

/// The text as UTF-8, so that a failure can be read.
std::string utf8(const CString& text);

using Ids = std::vector<AcDbObjectId>;
Ids idsOf(const AcArray<AcDbObjectId>& ids);
std::vector<int> intsOf(const CArray<int, int>& numbers);

} // namespace module_tests

/// How failures show an id: as its handle.
void PrintTo(const AcDbObjectId& id, std::ostream* out);
