#pragma once

#include "EmbeddedHost.h"

#include <string>

namespace soak {

/// What is lowered in a sewer, and the two texts that the pipe comes out with.
struct Lowering {
    const wchar_t* pipe; ///< handle, upper-case hexadecimal
    double drop;         ///< metres
    const wchar_t* startText;
    const wchar_t* endText;
};

/// A search in one of the example drawings, with what the file beside the drawing says of it.
struct SoakDrawing {
    const char* file;
    const wchar_t* start; ///< handle of the entity that is searched from
    const wchar_t* end;   ///< handle of the end entity; empty for none
    AcGePoint3d point;
    int result;       ///< of the search
    int segments;     ///< of a network that is found
    int pathWells;    ///< on the way from the end entity, both ends counted
    bool isPressure;  ///< else gravity, where there is a node more than segments
    Lowering lowered; ///< of a sewer
};

/// The drawing of a round. Of fifty rounds one is on a large drawing, the others on small ones.
const SoakDrawing& drawingOfRound(int round);

} // namespace soak
