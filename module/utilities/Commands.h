#pragma once

#include "Export.h"
#include "platform.h"

// Each of these sends its command with the host's command echo off and puts the echo back. Results
// of the host are not looked at.

/// Ends whatever the host has running: six times Enter.
TKVLT_API void PelClearLastCommand();

/// Opens a group of changes that is undone in one step. Groups do not nest by themselves; each one
/// must be ended, on all paths of the caller.
TKVLT_API void PelStartCommandGroup();
/// Ends the group.
TKVLT_API void PelEndCommandGroup();

/// Draws the view anew.
TKVLT_API void PelRedraw();

/// Redraws one entity in the host's redraw mode `mode`, then the view, also when `entity` has no
/// name.
TKVLT_API void PelIdRedraw(const AcDbObjectId& entity, int mode);

/// Redraws each entity of the list that has a name, then the view once.
TKVLT_API void PelIdArrRedraw(const AcDbObjectIdArray& entities, int mode);
