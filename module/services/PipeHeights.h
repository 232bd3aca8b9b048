#pragma once

#include "records/GravitySeg.h"

namespace tkvlt {

/// A height as a pipe carries it: metres with six significant digits, so that lowering a pipe
/// shortens its text.
CString HeightText(double height);

/// What lies between a height of the segment's pipes and their top there.
double DiameterInMetres(const GravitySeg& seg);

/// Writes the texts at "起点标高" and "终点标高" of a pipe. What the host refuses is not noticed.
void WriteHeights(const AcDbObjectId& pipe, const CString& startText, const CString& endText);

} // namespace tkvlt
