#pragma once

#include "frame/GravitySearchObject.h"

/// Takes a segment and the well at its end out of a network in memory; the segments behind that
/// well then start from the segment's start well. The network stays a tree, and the indices in it
/// keep pointing at what they pointed at. The drawing is not touched.
///
/// A segment behind keeps its elevations, length and far end. A `rootWell` that was removed becomes
/// the start well's index from before the removal.
///
/// @param segment Index in `segs`. One at or beyond the end throws CInvalidArgException with the
///                network as it was.
/// @return 1, or 0 for a null network or a negative index. Cost: linear in the network.
TKVLT_API int DeleteSeg(GravitySearchObject*& network, int segment);
