#pragma once

#include "gravity/GravityNetworkSearch.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <memory>
#include <ostream>

namespace module_tests {

/// A drawing and the working context of one search in it, for both ways of finding candidates.
class SearchTest : public ::testing::TestWithParam<tkvlt::CandidateMode> {
protected:
    /// Sets a search up from the settings of the moment; one that was there before goes.
    tkvlt::GravityNetworkSearch& begin(AcDbObjectId start = {}, AcDbObjectId end = {}) {
        startId = start;
        endId = end;
        network = std::make_unique<GravitySearchObject>();
        search = std::make_unique<tkvlt::GravityNetworkSearch>(network.get(), startId, endId, point,
                                                               GetParam());
        return *search;
    }

    /// The same without a result, with the pools filled: as a lone pipe is looked at.
    tkvlt::GravityNetworkSearch& beginWithoutResult() {
        startId.setNull();
        endId.setNull();
        network.reset();
        search = std::make_unique<tkvlt::GravityNetworkSearch>(nullptr, startId, endId, point,
                                                               GetParam());
        EXPECT_EQ(search->CollectEntitiesOnly(), 1);
        return *search;
    }

    /// Pool index of a pipe that was collected.
    int poolIndexOf(const AcDbObjectId& pipe) const {
        for (int i = 0; i < search->pipePool.Size(); ++i) {
            if (search->pipePool.Has(i) && search->pipePool[i].id == pipe) {
                return i;
            }
        }
        ADD_FAILURE() << "not in the pool";
        return -1;
    }

    DrawingBuilder drawing;
    AcDbObjectId startId;
    AcDbObjectId endId;
    AcGePoint3d point;
    std::unique_ptr<GravitySearchObject> network;
    std::unique_ptr<tkvlt::GravityNetworkSearch> search;
};

/// Ids of the entries that are in a pool.
template<class Record>
Ids idsIn(const tkvlt::RecordPool<Record>& pool) {
    Ids ids;
    for (int i = 0; i < pool.Size(); ++i) {
        if (pool.Has(i)) {
            ids.push_back(pool[i].id);
        }
    }
    return ids;
}

inline std::string modeName(const ::testing::TestParamInfo<tkvlt::CandidateMode>& info) {
    return info.param == tkvlt::CandidateMode::kIndexed ? "Indexed" : "PlainScan";
}

inline auto bothModes() {
    return ::testing::Values(tkvlt::CandidateMode::kIndexed, tkvlt::CandidateMode::kPlainScan);
}

} // namespace module_tests
