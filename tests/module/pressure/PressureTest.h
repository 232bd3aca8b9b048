#pragma once

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"
#include "pressure/PressureNetworkSearch.h"

#include <memory>
#include <string>
#include <vector>

namespace module_tests {

using PressureSegs = CArray<PressureSeg, PressureSeg&>;

/// A drawing of pressure pipes and their fittings.
class PressureDrawing : public DrawingBuilder {
public:
    /// A straight pipe of 给水.
    AcDbObjectId main(const AcGePoint3d& from, const AcGePoint3d& to, PipeTexts texts = {});
    /// A pipe of one arc of 给水; a positive bulge turns left.
    AcDbObjectId arc(const AcGePoint3d& from, const AcGePoint3d& to, double bulge,
                     PipeTexts texts = {});
    /// A round well of 给水.
    AcDbObjectId well(const AcGePoint3d& at, const wchar_t* diameter = L"1");
    /// A block of any name that is a well of 给水, or of `system`.
    AcDbObjectId fitting(const AcGePoint3d& at, const wchar_t* name, const wchar_t* diameter = L"1",
                         const wchar_t* system = kSupply);
    AcDbObjectId meter(const AcGePoint3d& at, const wchar_t* diameter = L"1",
                       const wchar_t* system = kSupply);
    AcDbObjectId valve(const AcGePoint3d& at, const wchar_t* diameter = L"1",
                       const wchar_t* system = kSupply);
};

/// A search on a drawing. In the maps drawn in comments `-` and `|` are pipes, `v` and `^` or `<`
/// and `>` the drawn end of one where that matters, `P` the pick. Pipe ends join over at most 0.4
/// units, and crossings nearer than 0.01 to an end are meetings at that end.
class PressureTest : public ::testing::Test {
protected:
    using Mode = tkvlt::CandidateMode;

    /// The whole search, from nothing.
    int search(AcDbObjectId picked, const AcGePoint3d& at, Mode mode = Mode::kIndexed);
    /// A search of its own over the drawing, with the system read and the pools filled.
    std::unique_ptr<tkvlt::PressureNetworkSearch>
    collected(AcDbObjectId picked, const AcGePoint3d& at = {}, Mode mode = Mode::kIndexed);
    /// The same with the pipes cut and their ends moved.
    std::unique_ptr<tkvlt::PressureNetworkSearch>
    prepared(AcDbObjectId picked, const AcGePoint3d& at = {}, Mode mode = Mode::kIndexed);

    /// What the segment's private member of that purpose gives.
    static double wellLength(PressureSeg& seg, const AcDbObjectId& first,
                             const AcDbObjectId& second);

    PressureSeg& seg(int index) { return segs.ElementAt(index); }
    int count() const { return static_cast<int>(segs.GetSize()); }
    Ids pipes(int index) { return idsOf(seg(index).pipeIds); }
    std::vector<int> parents() const;

    PressureDrawing drawing;
    PressureSegs segs;
    int rootSeg = -7; ///< a value that no search writes
};

/// A pipe of a pool as a test sees it.
struct Piece {
    AcDbObjectId id;
    AcGePoint3d start;
    AcGePoint3d end;
    int flag = 1;
};

/// The pipes that are present in a pool, in its order.
std::vector<const _Pipe*> present(const tkvlt::RecordPool<_Pipe>& pool);
/// Whether the pool has exactly these pipes in this order, ends within 1e-9.
::testing::AssertionResult holds(const tkvlt::RecordPool<_Pipe>& pool,
                                 const std::vector<Piece>& expected);

std::vector<AcGePoint3d> pointsOf(const CArray<AcGePoint3d, AcGePoint3d>& points);
std::vector<double> xOf(const CArray<AcGePoint3d, AcGePoint3d>& points);

} // namespace module_tests
