#pragma once

#include "ByteReader.h"

#include <functional>
#include <memory>

namespace fuzz {

struct ChainRelease {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};
using Chain = std::unique_ptr<resbuf, ChainRelease>;

/// A chain of up to 12 items. The code of each is what `code` gives; its value is of the kind that
/// belongs to the code.
Chain chainFromBytes(ByteReader& bytes, const std::function<int(ByteReader&)>& code);

} // namespace fuzz
