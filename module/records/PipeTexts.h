#pragma once

#include "platform.h"

namespace tkvlt {

/// What a pipe entity has to say of the segment that it is the first of.
struct PipeTexts {
    AcGePoint3d startPoint;
    AcGePoint3d endPoint;
    CString diameter;
    CString flow;
    CString slope;
    CString startElevation;
    CString endElevation;
    CString material;
};

/// Reads a pipe.
/// @param texts what stays of texts that it does not carry, and of all when it cannot be opened.
PipeTexts ReadPipeTexts(const AcDbObjectId& id, PipeTexts texts = {});

} // namespace tkvlt
