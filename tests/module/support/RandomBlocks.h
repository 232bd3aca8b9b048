#pragma once

#include <cstdint>

namespace module_tests {

/// Random drawings are searched in blocks, which may run side by side.
inline constexpr std::uint32_t kDrawingsInBlock = 1000;

#ifdef __SANITIZE_ADDRESS__
/// With the sanitizers a drawing takes ten times as long: the first blocks alone.
inline constexpr std::uint32_t kBlocks = 3;
#else
inline constexpr std::uint32_t kBlocks = 10;
#endif

} // namespace module_tests
