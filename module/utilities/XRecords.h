#pragma once

#include "Export.h"
#include "platform.h"

// Texts kept inside the drawing: in its named objects dictionary a dictionary, in that an xrecord,
// whose first item is the text. The host looks both names up without regard to case.

/// Makes `value` the whole content of the xrecord, as one item of group 8, under a write lock on
/// the current document; dictionary and xrecord are made when they are missing. 0 when one of the
/// three cannot be opened or entered, is of another kind, or does not take the text; else 1.
TKVLT_API int PelSetXRecord(CString dictionaryName, CString recordName, CString value);

/// Reads the text of the xrecord's first item, under a read lock on the current document. 0 with
/// `value` as it was when one of the three is missing, cannot be opened or is of another kind, or
/// when the xrecord does not begin with a text; else 1. Nothing is made.
TKVLT_API int PelGetXRecord(CString dictionaryName, CString recordName, CString& value);
