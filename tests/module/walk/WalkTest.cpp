#include "module/walk/WalkTest.h"

#include "gravity/MakeNode.h"

namespace module_tests {

namespace {

template<class Record>
int indexOf(const tkvlt::RecordPool<Record>& pool, AcDbObjectId id) {
    for (int i = 0; i < pool.Size(); ++i) {
        if (pool.Has(i) && pool[i].id == id) {
            return i;
        }
    }
    return -1;
}

} // namespace

void WalkTest::collect(const wchar_t* system, bool withResult) {
    search = std::make_unique<tkvlt::GravityNetworkSearch>(withResult ? &result : nullptr, start_,
                                                           end_, pick_, mode);
    search->systemName = system;
    ASSERT_EQ(search->CollectEntities(), 1);
}

void WalkTest::prepare(AcDbObjectId start, AcGePoint3d pick) {
    start_ = start;
    pick_ = pick;
    search = std::make_unique<tkvlt::GravityNetworkSearch>(&result, start_, end_, pick_, mode);
    ASSERT_EQ(search->ValidateEnds(), 1);
    ASSERT_EQ(search->CollectEntities(), 1);
}

int WalkTest::run(AcDbObjectId start, AcDbObjectId end, AcGePoint3d pick) {
    start_ = start;
    end_ = end;
    pick_ = pick;
    search = std::make_unique<tkvlt::GravityNetworkSearch>(&result, start_, end_, pick_, mode);
    return search->Run();
}

int WalkTest::pipe(AcDbObjectId id) const {
    return indexOf(search->pipePool, id);
}

int WalkTest::well(AcDbObjectId id) const {
    return indexOf(search->wellPool, id);
}

int WalkTest::traceOutOfStart(AcDbObjectId id) {
    const int index = pipe(id);
    search->ResetChain(index);
    return search->TraceChain(index, 1, search->pipePool[index].endPoint);
}

int WalkTest::traceOutOfEnd(AcDbObjectId id) {
    const int index = pipe(id);
    search->ResetChain(index);
    return search->TraceChain(index, 0, search->pipePool[index].startPoint);
}

Ids WalkTest::chain() const {
    Ids ids;
    for (const int index : intsOf(search->chainPipes)) {
        ids.push_back(search->pipePool[index].id);
    }
    return ids;
}

AcDbObjectId WalkTest::target() const {
    if (search->targetIndex < 0) {
        return {};
    }
    return search->targetKind == tkvlt::kWellTarget ? search->wellPool[search->targetIndex].id
                                                    : search->tankPool[search->targetIndex].id;
}

void WalkTest::makeNode(AcDbObjectId id) {
    Well node = tkvlt::MakeNode(search->wellPool[well(id)], tkvlt::kWellTarget);
    result.wells.Add(node);
    // Candidates of nodes are gathered with the pools.
    const CString system = search->systemName;
    collect(system);
}

Ids WalkTest::nodes() const {
    Ids ids;
    for (int i = 0; i < static_cast<int>(result.wells.GetSize()); ++i) {
        ids.push_back(result.wells.GetAt(i).nodeEntity);
    }
    return ids;
}

} // namespace module_tests
