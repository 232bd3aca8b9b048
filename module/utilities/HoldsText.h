#pragma once

#include "platform.h"

namespace tkvlt {

/// Whether the value of an item is a text, by its group code. A chain may come from anywhere, and
/// the text of another kind of item is no address to read from.
bool HoldsText(const resbuf* item);

} // namespace tkvlt
