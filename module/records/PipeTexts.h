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

/// Reads a pipe. One that cannot be opened says nothing, with both ends at the origin.
PipeTexts ReadPipeTexts(const AcDbObjectId& id);

} // namespace tkvlt
