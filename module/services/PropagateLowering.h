#pragma once

#include "frame/GravitySearchObject.h"

namespace tkvlt {

/// Carries a lowering from a well along the segments on which the water runs away from it, and
/// writes the heights of their pipes; the records of `network` stay as they are.
///
/// A branch ends at a segment whose water runs against the walk, and at one whose lower top is not
/// strictly above the limit.
///
/// @param well  Index of the well to begin at.
/// @param limit The top height that a pipe leaving the well may have, metres.
/// @return 1.
int PropagateLowering(GravitySearchObject& network, int well, double limit);

} // namespace tkvlt
