#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform.h"

namespace tkvlt {

/// Records of the drawing in selection order, from which a search takes entries away.
///
/// An entry keeps its index for the life of the pool, and taking one away costs the same wherever
/// it stands; scans pass over what has been taken. The order of the rest never changes, which is
/// what every tie between two entries rests on.
///
/// A record may be read from the drawing only when it is first looked at: most entities of a
/// drawing lie nowhere near the network that is searched. The drawing must stay as it is meanwhile.
template<class Record>
class RecordPool {
public:
    /// Fills a record from the entity.
    using Reader = void (*)(Record& record, const AcDbObjectId& id);

    /// One more than the largest index ever given; entries taken away are counted.
    int Size() const { return static_cast<int>(entries_.size()); }

    bool IsEmpty() const { return count_ == 0; }

    bool Has(int index) const { return entries_[static_cast<std::size_t>(index)].present; }

    /// The entity behind an entry, known without reading the record.
    const AcDbObjectId& IdOf(int index) const {
        return entries_[static_cast<std::size_t>(index)].id;
    }

    /// @param index an index that `Add` gave, also of an entry that has been taken away since.
    Record& operator[](int index) { return Read(index); }
    const Record& operator[](int index) const { return Read(index); }

    /// Appends a copy and returns its index.
    int Add(const Record& record) {
        const int index = Append(record.id);
        auto copy = std::make_unique<Record>();
        *copy = record;
        entries_.back().record = std::move(copy);
        return index;
    }

    /// Appends an entry that `read` fills from the drawing when it is first looked at, and returns
    /// its index.
    int AddUnread(const AcDbObjectId& id, Reader read) {
        const int index = Append(id);
        entries_.back().read = read;
        return index;
    }

    /// Takes the entry away. It must be present.
    void Remove(int index) {
        entries_[static_cast<std::size_t>(index)].present = false;
        --count_;
    }

    /// Puts an entry back that was taken away.
    void PutBack(int index) {
        entries_[static_cast<std::size_t>(index)].present = true;
        ++count_;
    }

    /// Makes the pool what it was when it had its first `size` entries and none had been taken.
    void RestoreFirst(int size) {
        entries_.resize(static_cast<std::size_t>(size));
        for (Entry& entry : entries_) {
            entry.present = true;
        }
        count_ = size;
    }

private:
    struct Entry {
        AcDbObjectId id;
        Reader read = nullptr;
        mutable std::unique_ptr<Record> record; // where it was read it stays, for it has references
        bool present = true;
    };

    int Append(const AcDbObjectId& id) {
        entries_.emplace_back().id = id;
        ++count_;
        return Size() - 1;
    }

    Record& Read(int index) const {
        const Entry& entry = entries_[static_cast<std::size_t>(index)];
        if (!entry.record) {
            auto record = std::make_unique<Record>();
            entry.read(*record, entry.id);
            entry.record = std::move(record);
        }
        return *entry.record;
    }

    std::vector<Entry> entries_;
    int count_ = 0;
};

} // namespace tkvlt
