#pragma once

#include "Settings.h"

#include <cstdint>

class AcDbDatabase;

namespace siblings {

/// The drawing settings that the working drawing carries in its own named xrecords, read again only
/// when the drawing has changed.
class DrawingRecords {
public:
    /// The values of the working drawing; what it does not have is left open, as all are without a
    /// drawing. Cost: a few nanoseconds while the drawing stays as it is, else some look-ups by
    /// name.
    const DrawingSettings& current();

private:
    std::uint32_t drawing_ = 0; ///< serial number of the drawing looked at last, 0 for none
    std::uint64_t revision_ = 0;
    DrawingSettings values_;
};

} // namespace siblings
