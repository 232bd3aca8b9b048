#pragma once

#include "Export.h"
#include "pressure/PressureSeg.h"
#include "records/GravitySeg.h"

/// A stretch of pipe of either flow kind: both records side by side, of which `kind` says which one
/// means anything.
///
/// Copy construction and assignment take a non-const reference and copy `kind`, then `pressure`,
/// then `gravity`; assignment does not test for self-assignment.
class TKVLT_API Seg {
public:
    /// `kind` -1 and two records at their defaults; asks for the pipe length setting.
    Seg();
    Seg(Seg& other);            ///< copies `kind`, `pressure`, `gravity`
    Seg& operator=(Seg& other); ///< the same
    ~Seg();

    int kind = -1;        ///< flow kind code: 1 gravity, 0 pressure, -1 not set or system unknown
    PressureSeg pressure; ///< meaningful when `kind` is 0
    GravitySeg gravity;   ///< meaningful when `kind` is 1
};
