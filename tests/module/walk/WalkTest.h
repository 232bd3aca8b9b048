#pragma once

#include "gravity/GravityNetworkSearch.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <memory>

namespace module_tests {

/// A drawing and one search on it, whose steps a test calls by themselves.
class WalkTest : public DrawingTest {
protected:
    /// Collects what is drawn by now, for the walk of one system. `withResult` false is the
    /// single-pipe path.
    void collect(const wchar_t* system = kSewer, bool withResult = true);
    /// Runs what comes before the root: validation of the start and collection.
    void prepare(AcDbObjectId start, AcGePoint3d pick = {});
    /// A whole search; what `Run` gave.
    int run(AcDbObjectId start, AcDbObjectId end = {}, AcGePoint3d pick = {});

    /// Pool index of an entity, -1 when it is not in the pool.
    int pipe(AcDbObjectId id) const;
    int well(AcDbObjectId id) const;
    /// Traces from the pipe on, out through its start or its end, having entered at the other.
    int traceOutOfStart(AcDbObjectId id);
    int traceOutOfEnd(AcDbObjectId id);
    /// The entities of the chain in order.
    Ids chain() const;
    /// What the chain ended at, null when it has no target.
    AcDbObjectId target() const;
    /// Makes a node of the pool's well, the next in the result.
    void makeNode(AcDbObjectId id);
    /// The entities of the nodes in order.
    Ids nodes() const;

    GravitySearchObject result;
    std::unique_ptr<tkvlt::GravityNetworkSearch> search;
    tkvlt::CandidateMode mode = tkvlt::CandidateModeFromEnvironment(); ///< of the next search

private:
    AcDbObjectId start_;
    AcDbObjectId end_;
    AcGePoint3d pick_;
};

} // namespace module_tests
