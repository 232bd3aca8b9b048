#pragma once

namespace tkvlt {

/// Where a search for the least value starts; only what is strictly below it is found.
inline constexpr double kFarAway = 99999999999999.9;

} // namespace tkvlt
