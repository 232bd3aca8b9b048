#pragma once

#include "platform/CWnd.h"

/// The docked command line. It handles WM_CHAR one character at a time: Backspace (8) takes the
/// last one away, Escape (27) clears the line and cancels the command that was begun, Enter (13)
/// hands the line to the command processor, anything else is put at the end. On the line a blank
/// stands for Enter, so "undo 2" is two inputs. What it does is what acedCommand does with texts,
/// except that a command whose input has not come to its end waits for the next line; a line that
/// the command cannot take cancels it. A cancelled command has changed nothing; what programs
/// change while it waits counts as its own. Points are typed "x,y" or "x,y,z" in UCS; with "@" in
/// front they count from the last point, and "@" alone is the last point. Where an entity is asked
/// for, a point picks it, and "All", "Last", "Previous" name entities. Never nullptr.
CWnd* acedGetAcadDockCmdLine();

/// The window that shows the drawing, 1000 by 800 pixels until it is moved. Never nullptr.
CWnd* acedGetAcadDwgView();

/// The program's window. Never nullptr.
CWnd* acedGetAcadFrame();
