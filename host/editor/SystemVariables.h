#pragma once

#include "database/ResultBuffer.h"
#include "editor/EditorCodes.h"

/// Reads a system variable, named in any case, into `result`: `restype` RTSHORT, RTLONG, RTREAL,
/// RTSTR or RT3DPOINT with the value; `rbnext` is left alone. A text is the caller's
/// (acutDelString). RTERROR, with `result` untouched: unknown name, null pointer, no drawing.
///
/// Of the drawing, gone with it: CLAYER, SNAPMODE, ORTHOMODE, GRIDMODE, FILLMODE, LTSCALE,
/// TEXTSIZE, VIEWSIZE (height of the view in drawing units); read-only UCSORG, UCSXDIR, UCSYDIR,
/// WORLDUCS, LASTPOINT, VIEWCTR (middle of the view, set by host::setView), DWGNAME, DWGPREFIX,
/// DWGTITLED, CTAB, TILEMODE, CMDNAMES and CMDACTIVE (the command that waits for input), UNDOCTL
/// (1, and 8 more while a group is open). Of the program:
/// CMDECHO, OSMODE, HIGHLIGHT, PICKBOX, PICKFIRST, FILEDIA, CMDDIA, ATTREQ, EXPERT.
int acedGetVar(const ACHAR* name, resbuf* result);

/// Sets a system variable. RTERROR, with nothing changed: unknown or read-only name, another
/// `restype` than the variable's, a value out of its range, for CLAYER the name of no layer or a
/// frozen one; no drawing. SNAPMODE and OSMODE have no effect on points that a
/// program gives: they are taken as they are.
int acedSetVar(const ACHAR* name, const resbuf* value);
