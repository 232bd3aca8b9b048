#pragma once

#include "platform/CArray.h"
#include "platform/CString.h"

/// Growing array of texts; its operations are those of CArray.
class CStringArray : public CArray<CString, const CString&> {};
