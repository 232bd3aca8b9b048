#pragma once

#include "platform/RelocatingStorage.h"

#include <algorithm>
#include <memory>
#include <utility>

/// Growing array of values of the platform's extension library.
///
/// Elements are held by value and moved bitwise when storage grows, so `T` must not point into
/// itself. The logical length is the number of elements, the physical length the number that the
/// storage has room for. A bad index throws CInvalidArgException and changes nothing; storage
/// that cannot be had throws CMemoryException. The array itself may be moved bitwise.
template<class T>
class AcArray {
public:
    /// An empty array with room for `physicalLength` >= 0 elements that grows by at least
    /// `growLength` >= 1 at a time.
    explicit AcArray(int physicalLength = 0, int growLength = kUsualGrowLength) {
        setGrowLength(growLength);
        setPhysicalLength(physicalLength);
    }
    AcArray(const AcArray& other) {
        setGrowLength(other.growLength());
        *this = other;
    }
    /// The other is as one made without lengths then.
    AcArray(AcArray&& other) noexcept { swap(other); }
    ~AcArray() = default;

    /// Becomes a copy of the contents; new storage is taken only if the physical length here is
    /// too small. The grow length stays.
    AcArray& operator=(const AcArray& other) {
        if (this != &other) {
            if (physicalLength() < other.length()) {
                setLogicalLength(0);
                block_.setCapacity(other.length());
            }
            setLogicalLength(other.length());
            T* const source = other.block_.data();
            std::copy(source, source + other.length(), begin());
        }
        return *this;
    }
    AcArray& operator=(AcArray&& other) noexcept {
        swap(other);
        return *this;
    }

    friend bool operator==(const AcArray& a, const AcArray& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

    int length() const { return static_cast<int>(block_.size()); }
    int logicalLength() const { return length(); }
    int physicalLength() const { return static_cast<int>(block_.capacity()); }
    int growLength() const { return static_cast<int>(block_.growth()); }
    bool isEmpty() const { return block_.size() == 0; }

    const T& operator[](int index) const { return block_[checked(index)]; }
    T& operator[](int index) { return block_[checked(index)]; }
    const T& at(int index) const { return block_[checked(index)]; }
    T& at(int index) { return block_[checked(index)]; }
    const T& getAt(int index) const { return block_[checked(index)]; }
    AcArray& setAt(int index, const T& value) {
        block_[checked(index)] = value;
        return *this;
    }
    AcArray& setAll(const T& value) {
        std::fill(begin(), end(), T(value));
        return *this;
    }
    const T& first() const { return at(0); }
    T& first() { return at(0); }
    const T& last() const { return at(length() - 1); }
    T& last() { return at(length() - 1); }

    /// Appends a copy; gives its index. The value may be an element of this array.
    int append(const T& value) {
        insertAt(length(), value);
        return length() - 1;
    }
    /// Appends copies of all elements of `other`, which may be this array.
    AcArray& append(const AcArray& other) {
        const int added = other.length();
        const int first = length();
        setLogicalLength(first + added);
        T* const source = other.block_.data();
        std::copy(source, source + added, begin() + first);
        return *this;
    }
    /// Inserts a copy before `index`, 0 to length(). The value may be an element of this array.
    AcArray& insertAt(int index, const T& value) {
        if (index < 0 || index > length()) {
            AfxThrowInvalidArgException();
        }
        std::ptrdiff_t own = block_.indexOf(std::addressof(value));
        if (own >= index) {
            ++own;
        }
        grow(length() + 1);
        block_.openGap(index, 1);
        block_[index] = own >= 0 ? block_[own] : value;
        return *this;
    }

    /// Destroys one element, or those from `first` to `last` inclusive; the others keep order.
    AcArray& removeAt(int index) { return removeSubArray(index, index); }
    AcArray& removeSubArray(int first, int last) {
        checked(first);
        checked(last);
        if (last >= first) {
            block_.closeGap(first, last - first + 1);
        }
        return *this;
    }
    /// Removes the first element equal to `value` from index `start` on; whether there was one.
    bool remove(const T& value, int start = 0) {
        int index = 0;
        if (!find(value, index, start)) {
            return false;
        }
        removeAt(index);
        return true;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(length() - 1); }
    /// Destroys all elements; the storage stays.
    AcArray& removeAll() { return setLogicalLength(0); }

    bool contains(const T& value, int start = 0) const {
        int index = 0;
        return find(value, index, start);
    }
    /// Whether an element from index `start` on equals `value`; `index` is written only then.
    bool find(const T& value, int& index, int start = 0) const {
        for (int i = std::max(start, 0); i < length(); ++i) {
            if (block_[i] == value) {
                index = i;
                return true;
            }
        }
        return false;
    }

    /// Sets the number of elements; new ones are default-constructed, surplus ones destroyed.
    AcArray& setLogicalLength(int length) {
        if (length < 0) {
            AfxThrowInvalidArgException();
        }
        grow(length);
        block_.setSize(length);
        return *this;
    }
    /// Sets the room to exactly `length` elements; surplus elements are destroyed.
    AcArray& setPhysicalLength(int length) {
        if (length < 0) {
            AfxThrowInvalidArgException();
        }
        if (length < this->length()) {
            setLogicalLength(length);
        }
        block_.setCapacity(length);
        return *this;
    }
    AcArray& setGrowLength(int length) {
        if (length < 1) {
            AfxThrowInvalidArgException();
        }
        block_.setGrowth(length);
        return *this;
    }

    AcArray& reverse() {
        std::reverse(begin(), end());
        return *this;
    }
    AcArray& swap(int a, int b) {
        std::swap(block_[checked(a)], block_[checked(b)]);
        return *this;
    }
    void swap(AcArray& other) noexcept { block_.swap(other.block_); }

    /// The elements in one piece, null when there is no storage. Owned by the array.
    const T* asArrayPtr() const { return block_.data(); }
    T* asArrayPtr() { return block_.data(); }
    const T* begin() const { return block_.data(); }
    const T* end() const { return block_.data() + length(); }
    T* begin() { return block_.data(); }
    T* end() { return block_.data() + length(); }

private:
    static constexpr int kUsualGrowLength = 8;

    int checked(int index) const {
        if (index < 0 || index >= length()) {
            AfxThrowInvalidArgException();
        }
        return index;
    }

    /// Makes room for `needed` elements. Large arrays grow by half their length, so that
    /// appending costs amortised constant time.
    void grow(int needed) {
        const int room = physicalLength();
        if (needed > room) {
            block_.setCapacity(std::max(needed, room + std::max(growLength(), room / 2)));
        }
    }

    host_storage::ElementBlock<T, kUsualGrowLength> block_;
};
