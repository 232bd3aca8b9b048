#pragma once

#include <cstddef>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
/// Of the sanitizer's own run-time library, whose headers not every system installs.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace module_tests {

/// The bytes that the process has allocated and not freed.
inline std::size_t allocatedBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

} // namespace module_tests
