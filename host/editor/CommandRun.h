#pragma once

#include <string>

namespace host_ed {

/// Runs a typed line on the current drawing: see acedGetAcadDockCmdLine. What it comes to is not
/// reported; without a drawing it does nothing.
void runTyped(const std::wstring& line);

/// Ends the command that waits for input; what it changed is taken back.
void cancelTyped();

} // namespace host_ed
