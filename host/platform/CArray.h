#pragma once

#include "platform/CObject.h"
#include "platform/PlatformTypes.h"
#include "platform/RelocatingStorage.h"

#include <algorithm>
#include <memory>

/// Growing array of values of the platform's class library.
///
/// Elements are held by value. A new element is default-constructed and then assigned, so `TYPE`
/// needs a default constructor and an `operator=` that accepts `ARG_TYPE`; types that copy from a
/// non-const reference take `TYPE&` as `ARG_TYPE`. When storage grows, elements are moved bitwise
/// and keep every field; a type stored here must not point into itself.
///
/// A bad index or count throws CInvalidArgException and changes nothing; storage that cannot be
/// had throws CMemoryException. Pointers and references to elements hold until the array grows or
/// shrinks. An array cannot be copied except by `Copy`.
template<class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    CArray() = default;
    ~CArray() override { releaseAll(); }

    INT_PTR GetSize() const { return size_; }
    INT_PTR GetCount() const { return size_; }
    bool IsEmpty() const { return size_ == 0; }
    /// Index of the last element, -1 when empty.
    INT_PTR GetUpperBound() const { return size_ - 1; }

    /// Sets the number of elements. New ones are default-constructed, surplus ones destroyed; 0
    /// also frees the storage. `growBy` >= 0 sets how many elements storage grows by at a time,
    /// -1 keeps that; with 0, the start value, an eighth of the size but 4 to 1024 is taken.
    void SetSize(INT_PTR newSize, INT_PTR growBy = -1) {
        if (newSize < 0) {
            AfxThrowInvalidArgException();
        }
        if (growBy >= 0) {
            growBy_ = growBy;
        }
        if (newSize == 0) {
            releaseAll();
            return;
        }
        if (newSize > size_) {
            reserve(newSize);
            host_storage::construct(data_, size_, newSize - size_);
        } else {
            host_storage::destroy(data_, newSize, size_ - newSize);
        }
        size_ = newSize;
    }

    /// Frees the storage beyond the elements.
    void FreeExtra() {
        if (capacity_ != size_) {
            setCapacity(size_);
        }
    }
    void RemoveAll() { SetSize(0, -1); }

    const TYPE& GetAt(INT_PTR index) const { return data_[checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return data_[checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return data_[checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return data_[checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return data_[checked(index)]; }
    TYPE& operator[](INT_PTR index) { return data_[checked(index)]; }
    void SetAt(INT_PTR index, ARG_TYPE newElement) { data_[checked(index)] = newElement; }

    /// The elements in one piece, null when there is no storage. Owned by the array.
    const TYPE* GetData() const { return data_; }
    TYPE* GetData() { return data_; }

    /// Assigns to `index`, growing the array by default-constructed elements where needed. The
    /// value may be an element of this array.
    void SetAtGrow(INT_PTR index, ARG_TYPE newElement) {
        if (index < 0) {
            AfxThrowInvalidArgException();
        }
        const INT_PTR own = host_storage::indexOf(data_, size_, std::addressof(newElement));
        if (index >= size_) {
            SetSize(index + 1, -1);
        }
        assign(index, own, newElement);
    }

    /// Appends a copy; gives its index. The value may be an element of this array.
    INT_PTR Add(ARG_TYPE newElement) {
        const INT_PTR index = size_;
        SetAtGrow(index, newElement);
        return index;
    }

    /// Appends copies of all elements of `source`, another array; gives the first one's index.
    INT_PTR Append(const CArray& source) {
        if (this == &source) {
            AfxThrowInvalidArgException();
        }
        const INT_PTR oldSize = size_;
        SetSize(size_ + source.size_, -1);
        assignAll(oldSize, source);
        return oldSize;
    }

    /// Becomes a copy of `source`, element by element; a copy of itself changes nothing.
    void Copy(const CArray& source) {
        if (this != &source) {
            SetSize(source.size_, -1);
            assignAll(0, source);
        }
    }

    /// Inserts `count` >= 1 copies before `index`; an index beyond the end first grows the array
    /// up to there. The value may be an element of this array.
    void InsertAt(INT_PTR index, ARG_TYPE newElement, INT_PTR count = 1) {
        if (index < 0 || count <= 0) {
            AfxThrowInvalidArgException();
        }
        INT_PTR own = host_storage::indexOf(data_, size_, std::addressof(newElement));
        if (own >= index) {
            own += count;
        }
        openGap(index, count);
        for (INT_PTR i = 0; i < count; ++i) {
            assign(index + i, own, newElement);
        }
    }

    /// Inserts copies of all elements of `source`, another array, before `index`.
    void InsertAt(INT_PTR index, const CArray* source) {
        if (source == nullptr || source == this || index < 0) {
            AfxThrowInvalidArgException();
        }
        if (source->size_ > 0) {
            openGap(index, source->size_);
            assignAll(index, *source);
        }
    }

    /// Destroys `count` >= 0 elements from `index` on; the following ones move down in order.
    void RemoveAt(INT_PTR index, INT_PTR count = 1) {
        if (index < 0 || count < 0 || index > size_ || count > size_ - index) {
            AfxThrowInvalidArgException();
        }
        host_storage::destroy(data_, index, count);
        host_storage::shift(data_, index + count, index, size_ - index - count);
        size_ -= count;
    }

private:
    INT_PTR checked(INT_PTR index) const {
        if (index < 0 || index >= size_) {
            AfxThrowInvalidArgException();
        }
        return index;
    }

    void setCapacity(INT_PTR capacity) {
        data_ = static_cast<TYPE*>(
            host_storage::resize(data_, static_cast<std::size_t>(capacity), sizeof(TYPE)));
        capacity_ = capacity;
    }

    void releaseAll() noexcept {
        host_storage::destroy(data_, 0, size_);
        host_storage::release(data_);
        data_ = nullptr;
        size_ = 0;
        capacity_ = 0;
    }

    /// Makes room for `needed` elements. The first storage is exact unless `growBy_` is greater.
    void reserve(INT_PTR needed) {
        if (needed <= capacity_) {
            return;
        }
        if (data_ == nullptr) {
            setCapacity(std::max(needed, growBy_));
            return;
        }
        const INT_PTR step = growBy_ != 0 ? growBy_ : std::clamp<INT_PTR>(size_ / 8, 4, 1024);
        setCapacity(std::max(needed, capacity_ + step));
    }

    /// Makes `count` default-constructed elements at `index`; those from there on move up.
    void openGap(INT_PTR index, INT_PTR count) {
        if (index >= size_) {
            SetSize(index + count, -1);
            return;
        }
        reserve(size_ + count);
        host_storage::shift(data_, index, index + count, size_ - index);
        try {
            host_storage::construct(data_, index, count);
        } catch (...) {
            host_storage::shift(data_, index + count, index, size_ - index);
            throw;
        }
        size_ += count;
    }

    /// Assigns an element of this array when `own` is an index, else the value given.
    void assign(INT_PTR index, INT_PTR own, ARG_TYPE newElement) {
        if (own >= 0) {
            data_[index] = data_[own];
        } else {
            data_[index] = newElement;
        }
    }

    void assignAll(INT_PTR first, const CArray& source) {
        if (data_ == nullptr) {
            return; // no room was made, since there is nothing to assign
        }
        for (INT_PTR i = 0; i < source.size_; ++i) {
            data_[first + i] = source.data_[i];
        }
    }

    TYPE* data_ = nullptr;
    INT_PTR size_ = 0;
    INT_PTR capacity_ = 0;
    INT_PTR growBy_ = 0;
};
