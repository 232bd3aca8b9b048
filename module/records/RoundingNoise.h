#pragma once

#include <initializer_list>

#include "platform.h"

namespace tkvlt {

/// What rounding may hide in a distance between these points: four units in the last place of their
/// largest coordinate, in drawing units.
double RoundingNoise(std::initializer_list<AcGePoint3d> points);

} // namespace tkvlt
