#pragma once

namespace tkvlt {

/// A pipe takes part in a search only when it is longer than this, in drawing units.
inline constexpr double kLongestIgnoredPipe = 1.0;

} // namespace tkvlt
