#pragma once

#include "Drawing.h"

#include <vector>

namespace pipenet {

/// The two height texts of a pipe as they stand in the drawing; empty for a missing one.
struct PipeHeightTexts {
    CString start;
    CString end;
};

/// A pipe whose height texts changed.
struct HeightChange {
    AcDbObjectId pipe;
    PipeHeightTexts before;
    PipeHeightTexts after;
};

/// Remembers the height texts of all pipes of a drawing, to tell later which have changed.
class HeightsBefore {
public:
    explicit HeightsBefore(const Drawing& drawing);

    /// The pipes whose texts differ now, in drawing order.
    std::vector<HeightChange> changes() const;

private:
    std::vector<HeightChange> pipes_;
};

} // namespace pipenet
