#pragma once

#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

/// A gravity search that only looks at single pipes: the drawing's pools, without start, end or
/// result. The drawing must stay as it is while it lives, heights apart. Construction costs one
/// pass over it.
class SinglePipeSearch {
public:
    SinglePipeSearch() : search_(nullptr, noEntity_, noEntity_, origin_) {
        search_.LetDrawingStay();
        search_.CollectEntitiesOnly();
    }
    SinglePipeSearch(const SinglePipeSearch&) = delete;
    SinglePipeSearch& operator=(const SinglePipeSearch&) = delete;

    /// Fills a default-constructed `seg` with the stretch around `pipe`. 0: not collected, or no
    /// well or tank at either end; 1: at both ends; 2: at one.
    int Build(GravitySeg& seg, const AcDbObjectId& pipe, const CString& systemName) {
        return search_.BuildSinglePipeSeg(seg, pipe, systemName);
    }

    /// The search itself, with all that it has collected.
    GravityNetworkSearch& Collected() { return search_; }

private:
    AcDbObjectId noEntity_; // the search refers to these, so they stand before it
    AcGePoint3d origin_;
    GravityNetworkSearch search_;
};

} // namespace tkvlt
