#pragma once

#include "platform/PlatformException.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

/// Raw storage for the platform's containers, which move their elements bitwise.
///
/// A copy of an element may differ from it (some types leave fields out when copied), so growing
/// must not copy. Elements are therefore carried to new storage byte by byte; a type stored here
/// must not point into itself.
namespace host_storage {

/// Frees storage; null is allowed.
inline void release(void* storage) noexcept {
    std::free(storage);
}

/// Brings storage to `count` elements of `elementSize` bytes, keeping the bytes that fit; 0 frees
/// it. The old pointer is void afterwards. Throws CMemoryException, leaving the old storage alone.
inline void* resize(void* storage, std::size_t count, std::size_t elementSize) {
    if (count == 0) {
        release(storage);
        return nullptr;
    }
    if (count >
        static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / elementSize) {
        AfxThrowMemoryException();
    }
    void* resized = std::realloc(storage, count * elementSize);
    if (resized == nullptr) {
        AfxThrowMemoryException();
    }
    return resized;
}

/// Moves `count` elements bitwise from index `from` to index `to` of the same storage.
template<class T>
void shift(T* storage, std::ptrdiff_t from, std::ptrdiff_t to, std::ptrdiff_t count) {
    static_assert(alignof(T) <= alignof(std::max_align_t));
    if (count > 0) {
        std::memmove(static_cast<void*>(storage + to), static_cast<const void*>(storage + from),
                     static_cast<std::size_t>(count) * sizeof(T));
    }
}

/// Default-constructs `count` elements in raw storage from index `first` on; all or none.
template<class T>
void construct(T* storage, std::ptrdiff_t first, std::ptrdiff_t count) {
    std::ptrdiff_t done = 0;
    try {
        for (; done < count; ++done) {
            ::new (static_cast<void*>(storage + first + done)) T();
        }
    } catch (...) {
        while (done > 0) {
            --done;
            storage[first + done].~T();
        }
        throw;
    }
}

/// Destroys `count` elements from index `first` on; the storage stays.
template<class T>
void destroy(T* storage, std::ptrdiff_t first, std::ptrdiff_t count) {
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        storage[first + i].~T();
    }
}

/// Index of the element that is `address`, or -1 if `address` is not among the `count` elements.
template<class T>
std::ptrdiff_t indexOf(const T* storage, std::ptrdiff_t count, const void* address) {
    const auto place = reinterpret_cast<std::uintptr_t>(address);
    const auto begin = reinterpret_cast<std::uintptr_t>(storage);
    if (storage == nullptr || place < begin || place >= begin + count * sizeof(T)) {
        return -1;
    }
    return static_cast<std::ptrdiff_t>((place - begin) / sizeof(T));
}

} // namespace host_storage
