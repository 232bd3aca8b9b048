#pragma once

#include <array>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
/// Of the sanitizer's own run-time library, whose headers not every system installs.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace module_tests {

#if !defined(__SANITIZE_ADDRESS__)
/// Pieces that were given back and lie at hand for this thread count as in use, a few of each size
/// up to about a kilobyte. Filled up, these places hold the same at every count.
inline void fillPlacesOfThread() {
    constexpr std::size_t largest = 1032;
    constexpr std::size_t step = 16;
    void* (*volatile take)(std::size_t) = std::malloc;
    std::array<void*, 32> pieces{}; // several times what a place holds
    for (std::size_t size = 8; size <= largest; size += step) {
        for (void*& piece : pieces) {
            piece = take(size);
        }
        for (void* piece : pieces) {
            std::free(piece);
        }
    }
}
#endif

/// The bytes that the process has allocated and not freed.
inline std::size_t allocatedBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    fillPlacesOfThread();
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

} // namespace module_tests
