#pragma once

#include "CheckReport.h"

#include <string>

namespace pipenet {

/// The report as a GeoJSON feature collection (RFC 7946) with its line end: a point for each
/// finding, a line for each run of a network, arcs as short straight pieces, and a point for each
/// well, tank, valve and meter. What a feature is stands in its property `feature`.
///
/// Coordinates are those of the drawing, in drawing units, not longitude and latitude; the
/// collection says so itself. A place that is not finite gives a feature without geometry.
std::string checkGeoJson(const std::string& drawing, const CheckReport& report);

} // namespace pipenet
