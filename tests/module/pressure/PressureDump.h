#pragma once

#include "pressure/PressureSeg.h"

#include <string>

namespace module_tests {

/// Every field of every segment as text, numbers to the last bit.
std::string dump(CArray<PressureSeg, PressureSeg&>& segs);

} // namespace module_tests
