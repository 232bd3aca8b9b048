#pragma once

#include "frame/GravitySearchObject.h"

#include <string>

namespace module_tests {

/// Every field of a result as text, numbers to the last bit; `extraValue4`, which a search leaves
/// as it finds it, excepted.
std::string dump(const GravitySearchObject& network);
std::string dump(const GravitySeg& seg);

/// Who is whose neighbour in which order, without places and lengths.
std::string dumpGraph(const GravitySearchObject& network);

} // namespace module_tests
