#pragma once

#include "town/Town.h"

#include <filesystem>

namespace benchmark_town {

/// Writes the town as a drawing of the 2010 form, with every text that its pipes and wells carry.
/// Throws std::runtime_error naming the file when it cannot be written.
void writeDrawing(const Town& town, const std::filesystem::path& path);

/// Writes what is true of the town as rows of commas:
///
///     system,NAME,well|pipe,START HANDLE,X,Y,FAR PIPE,NODES,SEGMENTS,VALVES,METERS
///     well,HANDLE,X,Y,RADIUS,PARENT HANDLE OR 0
///     pipe,HANDLE,X1,Y1,X2,Y2
///
/// Wells and pipes come in drawing order, coordinates with all their digits. Throws as above.
void writeTruth(const Town& town, const std::filesystem::path& path);

} // namespace benchmark_town
