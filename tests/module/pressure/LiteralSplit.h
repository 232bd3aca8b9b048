#pragma once

#include "pressure/PressureNetworkSearch.h"

#include <gtest/gtest.h>

namespace module_tests {

/// The cutting of a pool as its rules are worded: two loops over a plain array in which pieces go
/// to the end and the rest moves up, without any candidates and without a guard against cuts that
/// never end.
class LiteralSplit {
public:
    using Pool = CArray<_Pipe, _Pipe&>;

    explicit LiteralSplit(const tkvlt::RecordPool<_Pipe>& pipes);

    /// Cuts until nothing is left to cut. False when more than `limit` cuts would be needed.
    bool run(int limit);

    Pool pool;
    int cuts = 0;

private:
    bool hit(_Pipe& first, _Pipe& second, AcGePoint3d& point) const;
    bool isCutBy(const _Pipe& pipe, const AcGePoint3d& point) const;
    void cut(INT_PTR index, const AcGePoint3d& point);
};

/// Whether two pools are the same pipe by pipe, to the last bit of every field that cutting writes.
::testing::AssertionResult same(LiteralSplit::Pool& literal, const tkvlt::RecordPool<_Pipe>& pool);

} // namespace module_tests
