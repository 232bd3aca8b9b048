#pragma once

#include "database/ResultBuffer.h"
#include "platform/PlatformTypes.h"

/// Registers an application for extended data in the working database. RTNORM also when it is
/// registered already; RTERROR for an empty name, without a database, and for a new name while
/// another has locked the drawing.
int acdbRegApp(const ACHAR* name);

/// The record `name` (in any case) of the table "APPID", "BLOCK", "DIMSTYLE", "LAYER", "LTYPE" or
/// "STYLE" of the working database as a chain: group 0 the table's name, 2 the record's name in its
/// own spelling, 70 its flags; owned by the caller. nullptr when there is none. `setNext` is
/// accepted and has no effect.
resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext = 0);
