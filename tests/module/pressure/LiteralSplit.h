#pragma once

#include "pressure/PressureNetworkSearch.h"

#include <gtest/gtest.h>

#include <vector>

namespace module_tests {

/// The cutting of a pool as its rules are worded: two loops over a plain array in which pieces go
/// to the end and the rest moves up, without any candidates.
class LiteralSplit {
public:
    using Pool = CArray<_Pipe, _Pipe&>;

    /// A cut that was made: which piece of which entity, and where.
    struct Cut {
        AcDbObjectId id;
        AcGePoint3d start;
        AcGePoint3d end;
        AcGePoint3d point;
    };

    explicit LiteralSplit(const tkvlt::RecordPool<_Pipe>& pipes);

    /// Cuts until nothing is left to cut. False when more than `limit` cuts would be needed.
    bool run(int limit);
    /// The same without any cut that was made before: of the same entity, with the piece's two ends
    /// and the place each within the end tolerance.
    bool runWithoutRepeats(int limit);

    /// Whether a cut of that piece there would be one of those made.
    bool isMade(const _Pipe& pipe, const AcGePoint3d& point) const;

    Pool pool;
    std::vector<Cut> made; ///< in order

private:
    bool hit(_Pipe& first, _Pipe& second, AcGePoint3d& point) const;
    bool isCutBy(const _Pipe& pipe, const AcGePoint3d& point) const;
    void cut(INT_PTR index, const AcGePoint3d& point);

    bool repeats_ = true; ///< whether a cut may be made again
};

/// Whether two pools are the same pipe by pipe, to the last bit of every field that cutting writes.
::testing::AssertionResult same(LiteralSplit::Pool& literal, const tkvlt::RecordPool<_Pipe>& pool);

} // namespace module_tests
