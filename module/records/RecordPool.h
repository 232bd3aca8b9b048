#pragma once

#include <cstddef>
#include <deque>
#include <vector>

namespace tkvlt {

/// Records of the drawing in selection order, from which a search takes entries away.
///
/// An entry keeps its index for the life of the pool, and taking one away costs the same wherever
/// it stands; scans pass over what has been taken. The order of the rest never changes, which is
/// what every tie between two entries rests on.
template<class Record>
class RecordPool {
public:
    /// One more than the largest index ever given; entries taken away are counted.
    int Size() const { return static_cast<int>(records_.size()); }

    bool IsEmpty() const { return count_ == 0; }

    bool Has(int index) const { return present_[static_cast<std::size_t>(index)] != 0; }

    /// @param index an index that `Add` gave, also of an entry that has been taken away since.
    Record& operator[](int index) { return records_[static_cast<std::size_t>(index)]; }
    const Record& operator[](int index) const { return records_[static_cast<std::size_t>(index)]; }

    /// Appends a copy and returns its index.
    int Add(const Record& record) {
        records_.emplace_back() = record;
        present_.push_back(1);
        ++count_;
        return Size() - 1;
    }

    /// Takes the entry away. It must be present.
    void Remove(int index) {
        present_[static_cast<std::size_t>(index)] = 0;
        --count_;
    }

    /// Makes the pool what it was when it had its first `size` entries and none had been taken.
    void RestoreFirst(int size) {
        records_.resize(static_cast<std::size_t>(size));
        present_.assign(static_cast<std::size_t>(size), 1);
        count_ = size;
    }

private:
    std::deque<Record> records_; // a record cannot be moved, so its storage must not move either
    std::vector<char> present_;
    int count_ = 0;
};

} // namespace tkvlt
