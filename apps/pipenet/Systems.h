#pragma once

#include "TKVltSearchModule18.h"

#include <string>

namespace pipenet {

/// Flow kinds as `PelGetDirectionSytle` tells them; anything else is an unknown system.
inline constexpr int kGravityFlow = 1;
inline constexpr int kPressureFlow = 0;
inline constexpr int kUnknownFlow = -1;

/// The flow kind of a pipe's system by the settings.
int flowKindOfPipe(const AcDbObjectId& pipe);

/// The system name of an entity by the first of its well, tank and pipe names that is not empty.
CString systemNameOf(const AcDbObjectId& entity);

/// Up to what gap the ends of two pipes join, drawing units, by the settings as they stand.
double jointReach();

/// Metres that a length in drawing units stands for.
double metres(double drawingUnits);

/// "entity 1F3", "well 1F3", ... for sentences.
std::string nameOf(const AcDbObjectId& entity);

} // namespace pipenet
