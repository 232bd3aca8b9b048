#pragma once

#include "records/Pipe.h"

#include <string>

namespace pipenet {

/// An angle in radians as degrees.
double degrees(double radians);

/// The angle between the chords of two pipes whichever way they are drawn, 0 to 90 degrees.
double degreesBetween(const _Pipe& a, const _Pipe& b);

/// What to say of a pipe whose end lies in a well of another system.
std::string foreignWellSentence(const AcDbObjectId& pipe, const AcDbObjectId& well);

} // namespace pipenet
