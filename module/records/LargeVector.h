#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform.h"

namespace tkvlt {

/// Hands out memory for a `LargeVector`.
template<class T>
struct LargeBlocks {
    using value_type = T;

    LargeBlocks() = default;
    template<class Other>
    LargeBlocks(const LargeBlocks<Other>& /*other*/) {}

    T* allocate(std::size_t count) {
        T* block = std::allocator<T>().allocate(count);
        platform_memory::askForLargePages(block, count * sizeof(T));
        return block;
    }
    void deallocate(T* block, std::size_t count) { std::allocator<T>().deallocate(block, count); }

    bool operator==(const LargeBlocks& /*other*/) const { return true; }
};

/// A vector with something for each entity of the drawing, which is looked up all over: in large
/// pages if the system has them.
template<class T>
using LargeVector = std::vector<T, LargeBlocks<T>>;

} // namespace tkvlt
