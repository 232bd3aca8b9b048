#pragma once

#include "geometry/AcGePoint3d.h"

#include <initializer_list>

/// Rounding of large coordinates and the caller's tolerance, kept apart and brought together in
/// one place. A coordinate near 1e7 is rounded to about 2e-9, far above a tolerance of 1e-10;
/// points that were meant to be the same must meet all the same.
namespace host_geometry {

/// The noise of the coordinates of these points: four units in the last place of the largest
/// one. 0 for non-finite coordinates.
double roundingNoise(std::initializer_list<AcGePoint3d> points);

/// Distance within which points meet: the greater of `equalPoint` and the noise.
double meetingDistance(const AcGeTol& tol, double noise);

/// Angle in radians within which directions agree: the greater of `equalVector` and the noise
/// over the shorter of the lengths that give the directions. Infinite for a length of 0: a line
/// without length agrees with every direction.
double agreeingAngle(const AcGeTol& tol, double noise, double shorterLength);

} // namespace host_geometry
