#pragma once

#include "database/ResultBuffer.h"
#include "editor/EditorCodes.h"

/// Reads a system variable, named in any case, into `result`: `restype` RTSHORT, RTLONG, RTREAL,
/// RTSTR or RT3DPOINT with the value; `rbnext` is left alone. A text is the caller's
/// (acutDelString). RTERROR, with `result` untouched: unknown name, null pointer, no drawing.
///
/// Of the drawing: CLAYER, CECOLOR (the number as text, 256 "BYLAYER", 0 "BYBLOCK"), SNAPMODE,
/// ORTHOMODE, GRIDMODE, FILLMODE, LTSCALE, TEXTSIZE, UCSORG, UCSXDIR, UCSYDIR, WORLDUCS,
/// VIEWCTR, VIEWSIZE, DWGNAME, DWGPREFIX, DWGTITLED, CTAB, TILEMODE. Of the program: CMDECHO,
/// OSMODE, HIGHLIGHT, PICKBOX, PICKFIRST, FILEDIA, CMDDIA, ATTREQ, EXPERT, EDGEMODE, PROJMODE,
/// CMDNAMES, CMDACTIVE, UNDOCTL, ACADVER.
int acedGetVar(const ACHAR* name, resbuf* result);

/// Sets a system variable. RTERROR, with nothing changed: unknown or read-only name, another
/// `restype` than the variable's (RTPOINT counts as RT3DPOINT), a value out of its range, for
/// CLAYER the name of no layer; no drawing. SNAPMODE and OSMODE have no effect on points that a
/// program gives: they are taken as they are.
int acedSetVar(const ACHAR* name, const resbuf* value);
