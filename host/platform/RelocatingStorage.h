#pragma once

#include "platform/PlatformException.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

/// Raw storage for the platform's containers, which move their elements bitwise.
///
/// A copy of an element may differ from it (some types leave fields out when copied), so growing
/// must not copy. Elements are therefore carried to new storage byte by byte; a type stored here
/// must not point into itself.
namespace host_storage {

/// Brings a piece of memory, null for none yet, to so many bytes, keeping those that fit. Null,
/// with the old piece as it was, when that cannot be.
void* resize(void* memory, std::size_t bytes) noexcept;

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

/// Elements in one piece, with their number, the number that there is room for and the number that
/// a container grows by written in front of them.
///
/// The object is a single pointer, null as long as it has no room and the usual growth: the records
/// of a network have many lists, and most lists are empty or hold one element. Nothing here checks
/// an index. Room that cannot be had, which is also that for more than 2^32 - 1 elements, throws
/// CMemoryException and changes nothing.
template<class T, std::uint32_t kUsualGrowth>
class ElementBlock {
public:
    /// The largest number of elements.
    static constexpr std::ptrdiff_t mostElements() {
        constexpr std::size_t addressable = std::numeric_limits<std::ptrdiff_t>::max();
        return static_cast<std::ptrdiff_t>(std::min<std::size_t>(
            std::numeric_limits<std::uint32_t>::max(), (addressable - sizeof(Head)) / sizeof(T)));
    }

    ElementBlock() = default;
    ElementBlock(const ElementBlock&) = delete;
    ElementBlock& operator=(const ElementBlock&) = delete;
    ~ElementBlock() {
        destroy(elements_, 0, size());
        release();
    }

    std::ptrdiff_t size() const { return elements_ == nullptr ? 0 : head()->size; }
    std::ptrdiff_t capacity() const { return elements_ == nullptr ? 0 : head()->capacity; }
    std::ptrdiff_t growth() const { return elements_ == nullptr ? kUsualGrowth : head()->growth; }

    // Like a pointer, a block that is constant gives elements that are not: some can be copied only
    // from such.

    /// Null when there is no room.
    T* data() const { return capacity() == 0 ? nullptr : elements_; }
    T& operator[](std::ptrdiff_t index) const { return elements_[index]; }

    void swap(ElementBlock& other) noexcept { std::swap(elements_, other.elements_); }

    /// Any other than the usual growth needs memory.
    /// @param growth at least 0; more than the largest number of elements counts as that.
    void setGrowth(std::ptrdiff_t growth) {
        const std::ptrdiff_t counted = std::min(growth, mostElements());
        if (counted == this->growth()) {
            return;
        }
        if (elements_ == nullptr) {
            takeRoom(0);
        }
        head()->growth = static_cast<std::uint32_t>(counted);
        if (counted == kUsualGrowth && capacity() == 0) {
            setCapacity(0);
        }
    }

    /// Makes room for exactly so many, not less than there are.
    void setCapacity(std::ptrdiff_t capacity) {
        if (capacity == 0 && growth() == kUsualGrowth) {
            release();
            elements_ = nullptr;
        } else {
            takeRoom(capacity);
        }
    }

    /// Appends default-constructed elements, for which there is room, or destroys the last ones.
    void setSize(std::ptrdiff_t size) {
        const std::ptrdiff_t old = this->size();
        if (size > old) {
            construct(elements_, old, size - old);
        } else {
            destroy(elements_, size, old - size);
        }
        note(size);
    }

    /// Makes `count` >= 1 default-constructed elements at `index`, for which there is room; those
    /// from there on move up.
    void openGap(std::ptrdiff_t index, std::ptrdiff_t count) {
        const std::ptrdiff_t behind = head()->size - index;
        shift(elements_, index, index + count, behind);
        try {
            construct(elements_, index, count);
        } catch (...) {
            shift(elements_, index + count, index, behind);
            throw;
        }
        head()->size += static_cast<std::uint32_t>(count);
    }

    /// Destroys `count` elements at `index`; those behind them move down.
    void closeGap(std::ptrdiff_t index, std::ptrdiff_t count) {
        destroy(elements_, index, count);
        shift(elements_, index + count, index, size() - index - count);
        note(size() - count);
    }

    /// Index of the element that stands at an address, or -1 when none of these does.
    std::ptrdiff_t indexOf(const void* address) const {
        const auto place = reinterpret_cast<std::uintptr_t>(address);
        const auto begin = reinterpret_cast<std::uintptr_t>(elements_);
        if (elements_ == nullptr || place < begin || place >= begin + size() * sizeof(T)) {
            return -1;
        }
        return static_cast<std::ptrdiff_t>((place - begin) / sizeof(T));
    }

private:
    /// Takes as much as the largest alignment, so that the elements behind it are aligned.
    struct alignas(std::max_align_t) Head {
        std::uint32_t size = 0;
        std::uint32_t capacity = 0;
        std::uint32_t growth = kUsualGrowth;
    };

    Head* head() const { return reinterpret_cast<Head*>(elements_) - 1; }

    void release() {
        if (elements_ != nullptr) {
            std::free(head());
        }
    }

    /// Becomes a block with room for so many, also for none. One that cannot be made smaller stays
    /// as large.
    void takeRoom(std::ptrdiff_t capacity) {
        static_assert(alignof(T) <= alignof(Head));
        if (capacity > mostElements()) {
            AfxThrowMemoryException();
        }
        const std::size_t bytes = sizeof(Head) + static_cast<std::size_t>(capacity) * sizeof(T);
        const Head written = elements_ == nullptr ? Head() : *head();
        if (void* block = resize(elements_ == nullptr ? nullptr : head(), bytes)) {
            elements_ = reinterpret_cast<T*>(::new (block) Head(written) + 1);
        } else if (elements_ == nullptr || capacity > written.capacity) {
            AfxThrowMemoryException();
        }
        head()->capacity = static_cast<std::uint32_t>(capacity);
    }

    void note(std::ptrdiff_t size) {
        if (elements_ != nullptr) {
            head()->size = static_cast<std::uint32_t>(size);
        }
    }

    T* elements_ = nullptr;
};

} // namespace host_storage
