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
/// had, also that for more than 2^32 - 1 elements, throws CMemoryException. Pointers and references
/// to elements hold until the array grows or shrinks. An array cannot be copied except by `Copy`.
template<class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    CArray() = default;

    INT_PTR GetSize() const { return block_.size(); }
    INT_PTR GetCount() const { return block_.size(); }
    bool IsEmpty() const { return block_.size() == 0; }
    /// Index of the last element, -1 when empty.
    INT_PTR GetUpperBound() const { return block_.size() - 1; }

    /// Sets the number of elements. New ones are default-constructed, surplus ones destroyed; 0
    /// also frees the storage. `growBy` >= 0 sets how many elements storage grows by at a time,
    /// -1 keeps that; with 0, the start value, an eighth of the size but 4 to 1024 is taken. Any
    /// other needs storage of its own, also without elements.
    void SetSize(INT_PTR newSize, INT_PTR growBy = -1) {
        if (newSize < 0) {
            AfxThrowInvalidArgException();
        }
        if (growBy >= 0) {
            block_.setGrowth(growBy);
        }
        reserve(newSize);
        block_.setSize(newSize);
        if (newSize == 0) {
            block_.setCapacity(0);
        }
    }

    /// Frees the storage beyond the elements.
    void FreeExtra() {
        if (block_.capacity() != block_.size()) {
            block_.setCapacity(block_.size());
        }
    }
    void RemoveAll() { SetSize(0, -1); }

    const TYPE& GetAt(INT_PTR index) const { return block_[checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return block_[checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return block_[checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return block_[checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return block_[checked(index)]; }
    TYPE& operator[](INT_PTR index) { return block_[checked(index)]; }
    void SetAt(INT_PTR index, ARG_TYPE newElement) { block_[checked(index)] = newElement; }

    /// The elements in one piece, null when there is no storage. Owned by the array.
    const TYPE* GetData() const { return block_.data(); }
    TYPE* GetData() { return block_.data(); }

    /// Assigns to `index`, growing the array by default-constructed elements where needed. The
    /// value may be an element of this array.
    void SetAtGrow(INT_PTR index, ARG_TYPE newElement) {
        if (index < 0) {
            AfxThrowInvalidArgException();
        }
        const INT_PTR own = block_.indexOf(std::addressof(newElement));
        if (index >= GetSize()) {
            SetSize(index + 1, -1);
        }
        assign(index, own, newElement);
    }

    /// Appends a copy; gives its index. The value may be an element of this array.
    INT_PTR Add(ARG_TYPE newElement) {
        const INT_PTR index = GetSize();
        SetAtGrow(index, newElement);
        return index;
    }

    /// Appends copies of all elements of `source`, another array; gives the first one's index.
    INT_PTR Append(const CArray& source) {
        if (this == &source) {
            AfxThrowInvalidArgException();
        }
        const INT_PTR oldSize = GetSize();
        SetSize(oldSize + source.GetSize(), -1);
        assignAll(oldSize, source);
        return oldSize;
    }

    /// Becomes a copy of `source`, element by element; a copy of itself changes nothing.
    void Copy(const CArray& source) {
        if (this != &source) {
            SetSize(source.GetSize(), -1);
            assignAll(0, source);
        }
    }

    /// Inserts `count` >= 1 copies before `index`; an index beyond the end first grows the array
    /// up to there. The value may be an element of this array.
    void InsertAt(INT_PTR index, ARG_TYPE newElement, INT_PTR count = 1) {
        if (index < 0 || count <= 0) {
            AfxThrowInvalidArgException();
        }
        INT_PTR own = block_.indexOf(std::addressof(newElement));
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
        if (!source->IsEmpty()) {
            openGap(index, source->GetSize());
            assignAll(index, *source);
        }
    }

    /// Destroys `count` >= 0 elements from `index` on; the following ones move down in order.
    void RemoveAt(INT_PTR index, INT_PTR count = 1) {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index) {
            AfxThrowInvalidArgException();
        }
        block_.closeGap(index, count);
    }

private:
    INT_PTR checked(INT_PTR index) const {
        if (index < 0 || index >= GetSize()) {
            AfxThrowInvalidArgException();
        }
        return index;
    }

    /// Makes room for `needed` elements. The first storage is exact unless more is to be added at
    /// a time.
    void reserve(INT_PTR needed) {
        const INT_PTR room = block_.capacity();
        if (needed <= room) {
            return;
        }
        const INT_PTR growBy = block_.growth();
        if (room == 0) {
            block_.setCapacity(std::max(needed, growBy));
            return;
        }
        const INT_PTR step = growBy != 0 ? growBy : std::clamp<INT_PTR>(GetSize() / 8, 4, 1024);
        block_.setCapacity(std::max(needed, std::min(room + step, block_.mostElements())));
    }

    /// Makes `count` default-constructed elements at `index`; those from there on move up.
    void openGap(INT_PTR index, INT_PTR count) {
        if (index >= GetSize()) {
            SetSize(index + count, -1);
            return;
        }
        reserve(GetSize() + count);
        block_.openGap(index, count);
    }

    /// Assigns an element of this array when `own` is an index, else the value given.
    void assign(INT_PTR index, INT_PTR own, ARG_TYPE newElement) {
        if (own >= 0) {
            block_[index] = block_[own];
        } else {
            block_[index] = newElement;
        }
    }

    void assignAll(INT_PTR first, const CArray& source) {
        const INT_PTR count = source.GetSize();
        for (INT_PTR i = 0; i < count; ++i) {
            block_[first + i] = source.block_[i];
        }
    }

    host_storage::ElementBlock<TYPE, 0> block_;
};
