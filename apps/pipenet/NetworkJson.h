#pragma once

#include "NetworkSearch.h"

#include <string>

namespace pipenet {

/// The outcome of a search as one line of JSON.
std::string networkJson(const SearchOutcome& outcome);

} // namespace pipenet
