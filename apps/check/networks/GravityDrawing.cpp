#include "networks/GravityDrawing.h"

namespace pipenet {

namespace {

template<class Record>
void sortBySystem(const tkvlt::RecordPool<Record>& pool,
                  std::unordered_map<CString, std::vector<int>>& bySystem,
                  std::unordered_map<AcDbObjectId, int>& indices) {
    for (int i = 0; i < pool.Size(); ++i) {
        bySystem[pool[i].systemName].push_back(i);
        indices.emplace(pool.IdOf(i), i);
    }
}

const std::vector<int>& listOf(const std::unordered_map<CString, std::vector<int>>& lists,
                               const CString& system) {
    static const std::vector<int> empty;
    const auto list = lists.find(system);
    return list == lists.end() ? empty : list->second;
}

int indexOf(const std::unordered_map<AcDbObjectId, int>& indices, const AcDbObjectId& id) {
    const auto index = indices.find(id);
    return index == indices.end() ? -1 : index->second;
}

} // namespace

GravityDrawing::GravityDrawing() : search_(nullptr, none_, none_, origin_) {
    search_.LetDrawingStay();
    search_.CollectEntitiesOnly();
    sortBySystem(search_.pipePool, pipesOfSystem_, pipeIndices_);
    sortBySystem(search_.wellPool, wellsOfSystem_, wellIndices_);
}

void GravityDrawing::turnTo(const CString& system) {
    search_.RestorePools();
    search_.systemName = system;
}

const std::vector<int>& GravityDrawing::pipesOf(const CString& system) const {
    return listOf(pipesOfSystem_, system);
}

const std::vector<int>& GravityDrawing::wellsOf(const CString& system) const {
    return listOf(wellsOfSystem_, system);
}

int GravityDrawing::pipeIndex(const AcDbObjectId& id) const {
    return indexOf(pipeIndices_, id);
}

int GravityDrawing::wellIndex(const AcDbObjectId& id) const {
    return indexOf(wellIndices_, id);
}

} // namespace pipenet
