#pragma once

#include "EmbeddedHost.h"

namespace pipenet {

/// How a search reads a number text.
enum class NumberKind {
    real,  ///< the longest decimal prefix
    whole, ///< the longest prefix of digits
};

/// What a search makes of a number text.
struct NumberReading {
    double value = 0.0;
    bool isNumber = false; ///< the text begins with a number; else it reads as 0
    bool isWhole = false;  ///< nothing of the text was left out, blanks around it aside
};

/// Reads a text as the search does, and tells how much of it counted.
NumberReading readNumber(const CString& text, NumberKind kind);

} // namespace pipenet
