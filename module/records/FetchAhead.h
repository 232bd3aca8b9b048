#pragma once

#include <cstddef>

namespace tkvlt {

/// Of memory that the processor fetches at once, bytes; on most machines.
inline constexpr std::size_t kCacheLine = 64;

/// Tells the processor that a record is going to be looked at soon. Nothing else comes of it.
template<class Record>
void FetchAhead(const Record& record) {
#if defined(__GNUC__)
    const char* bytes = reinterpret_cast<const char*>(&record);
    for (std::size_t at = 0; at < sizeof(Record); at += kCacheLine) {
        __builtin_prefetch(bytes + at);
    }
    if (alignof(Record) < kCacheLine) {
        __builtin_prefetch(bytes + sizeof(Record) - 1);
    }
    // Without it a function that does nothing else passes for one without effect, and the compiler
    // leaves out the calls of it.
    __asm__ __volatile__("");
#else
    static_cast<void>(record);
#endif
}

} // namespace tkvlt
