#pragma once

#include "platform/CString.h"

#include <optional>
#include <string>

/// The folder of the settings files, spelled as it was given. In this order: what
/// `siblings::setSystemPath` gave; the environment variable `TKVLT_SYSTEM_PATH`; the folder
/// installed beside the program. The last is, of `../share/tkvlt/settings` as seen from the
/// program's folder and `settings` in that folder itself, the first that exists, and the former
/// when none does. A set but empty text counts as not set. The program's surroundings are looked at
/// once in a process.
CString GetSystemPath();

/// The drawing's scale, built in: 1.0. See `siblings::DrawingSettings` for where it comes from.
double GetDwgScale();
/// What 1000 millimetres of the real network measure is 1000 divided by this number, in drawing
/// units: 1000 means that one drawing unit is one metre, 500 that it is half a metre.
/// Built in: 1000.0.
double GetVZDrawScale();
/// The distance up to which a pipe counts as merely broken, to be multiplied by the drawing's
/// scale. Built in: 0.1.
double GetPipeBreakDist();
/// The way in which pipe lengths are reckoned. Built in: 0.
int GetPipeCalLongType();

namespace siblings {

/// The drawing settings that a process gives itself. What is not set comes from elsewhere.
///
/// For each value by itself the first found wins:
///  1. this override;
///  2. the working drawing's own named xrecord of that name in its dictionary
///     `TKVLT_DRAWING_SETTINGS` (`DwgScale`, `DrawScale`, `PipeBreakDist`, `PipeCalLongType`),
///     whose first item is a group 8 with the number as text;
///  3. the top-level key of that name in the file `SysCon\DrawingSetting.Kdp` of the system path;
///  4. the built-in value.
/// A text without a numeric prefix is found all the same and reads as 0.
///
/// The getters are cheap enough to be asked for every candidate of a search, and each call gives
/// what holds at that moment: a changed override, system path, variable, working drawing or xrecord
/// is seen by the next call. A changed file is seen by the next call too, except that a caller who
/// asks more than 64 times within one tick of the system's coarse clock (some milliseconds) may see
/// the file of the beginning of that tick. They serve the host's main thread.
struct DrawingSettings {
    std::optional<double> dwgScale;
    std::optional<double> drawScale;
    std::optional<double> pipeBreakDist;
    std::optional<int> pipeCalLongType;
};

/// Replaces the process's override; a value that `settings` leaves open is no longer overridden.
void setDrawingSettings(const DrawingSettings& settings);
/// Takes the process's override of the drawing settings away. The system path stays.
void clearDrawingSettings();
/// Sets the system path for the process, UTF-8, `/` and `\` both separating. An empty text takes
/// the setting away. The folder `Support` of the path becomes the host's first support folder.
void setSystemPath(const std::string& path);

} // namespace siblings
