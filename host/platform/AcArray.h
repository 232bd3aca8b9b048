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
    explicit AcArray(int physicalLength = 0, int growLength = 8) : growLength_(growLength) {
        if (growLength < 1) {
            AfxThrowInvalidArgException();
        }
        setPhysicalLength(physicalLength);
    }
    AcArray(const AcArray& other) : growLength_(other.growLength_) { *this = other; }
    AcArray(AcArray&& other) noexcept : growLength_(other.growLength_) { swap(other); }
    ~AcArray() {
        host_storage::destroy(data_, 0, length_);
        host_storage::release(data_);
    }

    /// Becomes a copy of the contents; new storage is taken only if the physical length here is
    /// too small. The grow length stays.
    AcArray& operator=(const AcArray& other) {
        if (this != &other) {
            if (physical_ < other.length_) {
                setLogicalLength(0);
                setCapacity(other.length_);
            }
            setLogicalLength(other.length_);
            std::copy(other.data_, other.data_ + other.length_, data_);
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

    int length() const { return length_; }
    int logicalLength() const { return length_; }
    int physicalLength() const { return physical_; }
    int growLength() const { return growLength_; }
    bool isEmpty() const { return length_ == 0; }

    const T& operator[](int index) const { return data_[checked(index)]; }
    T& operator[](int index) { return data_[checked(index)]; }
    const T& at(int index) const { return data_[checked(index)]; }
    T& at(int index) { return data_[checked(index)]; }
    const T& getAt(int index) const { return data_[checked(index)]; }
    AcArray& setAt(int index, const T& value) {
        data_[checked(index)] = value;
        return *this;
    }
    AcArray& setAll(const T& value) {
        std::fill(begin(), end(), T(value));
        return *this;
    }
    const T& first() const { return at(0); }
    T& first() { return at(0); }
    const T& last() const { return at(length_ - 1); }
    T& last() { return at(length_ - 1); }

    /// Appends a copy; gives its index. The value may be an element of this array.
    int append(const T& value) {
        insertAt(length_, value);
        return length_ - 1;
    }
    /// Appends copies of all elements of `other`, which may be this array.
    AcArray& append(const AcArray& other) {
        const int added = other.length_;
        const int first = length_;
        setLogicalLength(first + added);
        std::copy(other.data_, other.data_ + added, data_ + first);
        return *this;
    }
    /// Inserts a copy before `index`, 0 to length(). The value may be an element of this array.
    AcArray& insertAt(int index, const T& value) {
        if (index < 0 || index > length_) {
            AfxThrowInvalidArgException();
        }
        std::ptrdiff_t own = host_storage::indexOf(data_, length_, std::addressof(value));
        if (own >= index) {
            ++own;
        }
        openGap(index);
        data_[index] = own >= 0 ? data_[own] : value;
        return *this;
    }

    /// Destroys one element, or those from `first` to `last` inclusive; the others keep order.
    AcArray& removeAt(int index) { return removeSubArray(index, index); }
    AcArray& removeSubArray(int first, int last) {
        checked(first);
        checked(last);
        if (last >= first) {
            host_storage::destroy(data_, first, last - first + 1);
            host_storage::shift(data_, last + 1, first, length_ - last - 1);
            length_ -= last - first + 1;
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
    AcArray& removeLast() { return removeAt(length_ - 1); }
    /// Destroys all elements; the storage stays.
    AcArray& removeAll() { return setLogicalLength(0); }

    bool contains(const T& value, int start = 0) const {
        int index = 0;
        return find(value, index, start);
    }
    /// Whether an element from index `start` on equals `value`; `index` is written only then.
    bool find(const T& value, int& index, int start = 0) const {
        for (int i = std::max(start, 0); i < length_; ++i) {
            if (data_[i] == value) {
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
        if (length > length_) {
            grow(length);
            host_storage::construct(data_, length_, length - length_);
        } else {
            host_storage::destroy(data_, length, length_ - length);
        }
        length_ = length;
        return *this;
    }
    /// Sets the room to exactly `length` elements; surplus elements are destroyed.
    AcArray& setPhysicalLength(int length) {
        if (length < 0) {
            AfxThrowInvalidArgException();
        }
        if (length < length_) {
            setLogicalLength(length);
        }
        setCapacity(length);
        return *this;
    }
    AcArray& setGrowLength(int length) {
        if (length < 1) {
            AfxThrowInvalidArgException();
        }
        growLength_ = length;
        return *this;
    }

    AcArray& reverse() {
        std::reverse(begin(), end());
        return *this;
    }
    AcArray& swap(int a, int b) {
        std::swap(data_[checked(a)], data_[checked(b)]);
        return *this;
    }
    void swap(AcArray& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(length_, other.length_);
        std::swap(physical_, other.physical_);
        std::swap(growLength_, other.growLength_);
    }

    /// The elements in one piece, null when there is no storage. Owned by the array.
    const T* asArrayPtr() const { return data_; }
    T* asArrayPtr() { return data_; }
    const T* begin() const { return data_; }
    const T* end() const { return data_ + length_; }
    T* begin() { return data_; }
    T* end() { return data_ + length_; }

private:
    int checked(int index) const {
        if (index < 0 || index >= length_) {
            AfxThrowInvalidArgException();
        }
        return index;
    }

    void setCapacity(int capacity) {
        data_ = static_cast<T*>(
            host_storage::resize(data_, static_cast<std::size_t>(capacity), sizeof(T)));
        physical_ = capacity;
    }

    /// Makes room for `needed` elements. Large arrays grow by half their length, so that
    /// appending costs amortised constant time.
    void grow(int needed) {
        if (needed > physical_) {
            setCapacity(std::max(needed, physical_ + std::max(growLength_, physical_ / 2)));
        }
    }

    void openGap(int index) {
        grow(length_ + 1);
        host_storage::shift(data_, index, index + 1, length_ - index);
        try {
            host_storage::construct(data_, index, 1);
        } catch (...) {
            host_storage::shift(data_, index + 1, index, length_ - index);
            throw;
        }
        ++length_;
    }

    T* data_ = nullptr;
    int length_ = 0;
    int physical_ = 0;
    int growLength_ = 8;
};
