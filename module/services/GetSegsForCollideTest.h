#pragma once

#include "services/Seg.h"

/// Builds one segment for each pipe of a list, reading the drawing a single time.
///
/// A build that fails still takes its place in the list, in the state in which it was left: without
/// pipes or without entities. A pipe of a system that the settings do not know gives an entry of
/// `kind` -1 with its own values in `pressure`.
///
/// @param segs  Appended to; not emptied first.
/// @param pipes The pipe entities; one that stands twice gives two entries.
/// @param removeDuplicates Nonzero: of gravity entries with an entity at both ends and the same
///              pipes in any order only the first stays, in the whole of `segs`. Entries of other
///              kinds and those with an open end are never removed.
/// @return 1, or 0 with `segs` as it was when `pipes` is empty.
TKVLT_API int GetSegsForCollideTest(CArray<Seg, Seg&>& segs, const AcDbObjectIdArray& pipes,
                                    int removeDuplicates);
