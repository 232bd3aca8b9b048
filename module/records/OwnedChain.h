#pragma once

#include <memory>

#include "platform.h"

namespace tkvlt {

struct ChainRelease {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// A chain that is released with its owner, also when an exception ends the work on it.
using OwnedChain = std::unique_ptr<resbuf, ChainRelease>;

} // namespace tkvlt
