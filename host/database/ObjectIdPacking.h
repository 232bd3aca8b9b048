#pragma once

#include <cstdint>

namespace host_db {

/// An id's value is its database's serial number times 2^40 plus the object's place plus one.
inline constexpr int kPlaceBits = 40;
inline constexpr std::uint32_t kMaxSerial = (1U << 23) - 1;

inline std::int64_t packId(std::uint32_t serial, std::uint64_t place) {
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(serial) << kPlaceBits) |
                                     (place + 1));
}

inline std::uint32_t serialOf(std::int64_t id) {
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(id) >> kPlaceBits);
}

/// Out of every table's range for a value without a place.
inline std::uint64_t placeOf(std::int64_t id) {
    return (static_cast<std::uint64_t>(id) & ((1ULL << kPlaceBits) - 1)) - 1;
}

} // namespace host_db
