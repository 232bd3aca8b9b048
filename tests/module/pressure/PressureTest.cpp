#include "module/pressure/PressureTest.h"

namespace module_tests {

namespace {

/// Reaches the private member of the class: an explicit instantiation may name it.
using WellLength = double (PressureSeg::*)(const AcDbObjectId&, const AcDbObjectId&);
WellLength wellLengthMember();
template<WellLength member>
struct WellLengthAccess {
    friend WellLength wellLengthMember() { return member; }
};
template struct WellLengthAccess<&PressureSeg::GetCacuWellLength>;

} // namespace

AcDbObjectId PressureDrawing::main(const AcGePoint3d& from, const AcGePoint3d& to,
                                   PipeTexts texts) {
    texts.system = kSupply;
    return addPipe(from, to, texts);
}

AcDbObjectId PressureDrawing::arc(const AcGePoint3d& from, const AcGePoint3d& to, double bulge,
                                  PipeTexts texts) {
    texts.system = kSupply;
    return addArcPipe(from, to, bulge, texts);
}

AcDbObjectId PressureDrawing::well(const AcGePoint3d& at, const wchar_t* diameter) {
    return addWell(at, {.diameter = diameter, .system = kSupply});
}

AcDbObjectId PressureDrawing::fitting(const AcGePoint3d& at, const wchar_t* name,
                                      const wchar_t* diameter, const wchar_t* system) {
    return addBlock(at, name, {{L"管井系统", system}, {L"井的直径", diameter}});
}

AcDbObjectId PressureDrawing::meter(const AcGePoint3d& at, const wchar_t* diameter,
                                    const wchar_t* system) {
    return fitting(at, L"VLT_WELL_15", diameter, system);
}

AcDbObjectId PressureDrawing::valve(const AcGePoint3d& at, const wchar_t* diameter,
                                    const wchar_t* system) {
    return fitting(at, L"VLT_WELL_05", diameter, system);
}

int PressureTest::search(AcDbObjectId picked, const AcGePoint3d& at, Mode mode) {
    segs.RemoveAll();
    rootSeg = -7;
    return tkvlt::PressureNetworkSearch(segs, picked, at, rootSeg, mode).Run();
}

std::unique_ptr<tkvlt::PressureNetworkSearch>
PressureTest::collected(AcDbObjectId picked, const AcGePoint3d& at, Mode mode) {
    auto search = std::make_unique<tkvlt::PressureNetworkSearch>(segs, picked, at, rootSeg, mode);
    EXPECT_NE(search->ReadSystemName(), 0);
    EXPECT_NE(search->CollectEntities(), 0);
    return search;
}

std::unique_ptr<tkvlt::PressureNetworkSearch>
PressureTest::prepared(AcDbObjectId picked, const AcGePoint3d& at, Mode mode) {
    auto search = collected(picked, at, mode);
    EXPECT_EQ(search->PreparePipes(), 1);
    return search;
}

double PressureTest::wellLength(PressureSeg& seg, const AcDbObjectId& first,
                                const AcDbObjectId& second) {
    return (seg.*wellLengthMember())(first, second);
}

std::vector<int> PressureTest::parents() const {
    std::vector<int> list;
    for (int i = 0; i < count(); ++i) {
        list.push_back(segs.GetAt(i).parent);
    }
    return list;
}

std::vector<const _Pipe*> present(const tkvlt::RecordPool<_Pipe>& pool) {
    std::vector<const _Pipe*> pipes;
    for (int i = 0; i < pool.Size(); ++i) {
        if (pool.Has(i)) {
            pipes.push_back(&pool[i]);
        }
    }
    return pipes;
}

::testing::AssertionResult holds(const tkvlt::RecordPool<_Pipe>& pool,
                                 const std::vector<Piece>& expected) {
    const std::vector<const _Pipe*> pipes = present(pool);
    if (pipes.size() != expected.size()) {
        return ::testing::AssertionFailure()
               << pipes.size() << " pipes instead of " << expected.size();
    }
    for (std::size_t i = 0; i < pipes.size(); ++i) {
        const ::testing::AssertionResult start = samePoint(pipes[i]->startPoint, expected[i].start);
        const ::testing::AssertionResult end = samePoint(pipes[i]->endPoint, expected[i].end);
        if (!start || !end || pipes[i]->id != expected[i].id ||
            pipes[i]->orientationFlag != expected[i].flag) {
            return ::testing::AssertionFailure()
                   << "pipe " << i << ": start " << start.message() << " end " << end.message()
                   << " flag " << pipes[i]->orientationFlag << " id "
                   << ::testing::PrintToString(pipes[i]->id);
        }
    }
    return ::testing::AssertionSuccess();
}

std::vector<AcGePoint3d> pointsOf(const CArray<AcGePoint3d, AcGePoint3d>& points) {
    std::vector<AcGePoint3d> list;
    for (INT_PTR i = 0; i < points.GetSize(); ++i) {
        list.push_back(points.GetAt(i));
    }
    return list;
}

std::vector<double> xOf(const CArray<AcGePoint3d, AcGePoint3d>& points) {
    std::vector<double> list;
    for (const AcGePoint3d& point : pointsOf(points)) {
        list.push_back(point.x);
    }
    return list;
}

} // namespace module_tests
