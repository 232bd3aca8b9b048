#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "platform.h"
#include "records/LargeVector.h"

namespace tkvlt {

/// Records of the drawing in selection order, from which a search takes entries away.
///
/// An entry keeps its index until the pool is closed up, and taking one away costs the same
/// wherever it stands; scans pass over what has been taken. The order of the rest never changes,
/// which is what every tie between two entries rests on.
///
/// A record may be read from the drawing only when it is first looked at: most entities of a
/// drawing lie nowhere near the network that is searched. The drawing must stay as it is meanwhile.
template<class Record>
class RecordPool {
public:
    /// Fills a record from the entity.
    using Reader = void (*)(Record& record, const AcDbObjectId& id);

    RecordPool() = default;
    virtual ~RecordPool() = default;
    RecordPool(const RecordPool&) = delete;
    RecordPool& operator=(const RecordPool&) = delete;
    RecordPool(RecordPool&&) noexcept = default;
    RecordPool& operator=(RecordPool&&) noexcept = default;

    /// One more than the largest index given since `CloseUp`; entries taken away are counted.
    int Size() const { return static_cast<int>(entries_.size()); }

    bool IsEmpty() const { return count_ == 0; }

    bool Has(int index) const { return present_[static_cast<std::size_t>(index)]; }

    /// The entity behind an entry, known without reading the record.
    const AcDbObjectId& IdOf(int index) const {
        return entries_[static_cast<std::size_t>(index)].id;
    }

    /// @param index an index that `Add` gave, also of an entry that has been taken away since.
    Record& operator[](int index) { return Read(index); }
    const Record& operator[](int index) const { return Read(index); }

    /// Whether the entry's record has been read.
    bool IsRead(int index) const {
        return entries_[static_cast<std::size_t>(index)].record != nullptr;
    }

    /// Makes room for so many entries at once.
    void Reserve(std::size_t entries) {
        entries_.reserve(entries);
        present_.reserve(entries);
    }

    /// Appends a copy and returns its index.
    int Add(const Record& record) {
        auto copy = std::make_unique<Record>();
        *copy = record;
        return Add(std::move(copy));
    }

    /// Appends a record and returns its index.
    int Add(std::unique_ptr<Record> record) {
        const int index = Append(record->id);
        entries_.back().record = std::move(record);
        return index;
    }

    /// Appends an entry that `read` fills from the drawing when it is first looked at, and returns
    /// its index. One pool has one reader.
    int AddUnread(const AcDbObjectId& id, Reader read) {
        read_ = read;
        return Append(id);
    }

    /// Takes the entry away. It must be present.
    void Remove(int index) {
        present_[static_cast<std::size_t>(index)] = false;
        --count_;
    }

    /// Puts an entry back that was taken away.
    void PutBack(int index) {
        present_[static_cast<std::size_t>(index)] = true;
        ++count_;
    }

    /// Drops the entries that have been taken away and spare room: the rest moves up, in its order,
    /// and the indices given before mean nothing any more where one was taken away.
    void CloseUp() {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (present_[i]) {
                std::swap(entries_[kept++], entries_[i]);
            }
        }
        entries_.resize(kept);
        entries_.shrink_to_fit();
        present_.assign(entries_.size(), true);
        present_.shrink_to_fit();
    }

    /// Makes the pool what it was when it had its first `size` entries and none had been taken.
    void RestoreFirst(int size) {
        entries_.resize(static_cast<std::size_t>(size));
        present_.assign(static_cast<std::size_t>(size), true);
        count_ = size;
    }

protected:
    /// Appends an entry whose record a derived class makes.
    int AddUnread(const AcDbObjectId& id) { return Append(id); }

    /// Drops a record that `ReadRecord` made; it is made anew when it is next looked at.
    void Forget(int index) { entries_[static_cast<std::size_t>(index)].record.reset(); }

    /// Fills the record of an entry that is looked at for the first time.
    virtual void ReadRecord(Record& record, int index) const { read_(record, IdOf(index)); }

private:
    struct Entry {
        AcDbObjectId id;
        mutable std::unique_ptr<Record> record; // where it was read it stays, for it has references
    };

    int Append(const AcDbObjectId& id) {
        entries_.emplace_back().id = id;
        present_.push_back(true);
        ++count_;
        return Size() - 1;
    }

    Record& Read(int index) const {
        const Entry& entry = entries_[static_cast<std::size_t>(index)];
        if (!entry.record) {
            auto record = std::make_unique<Record>();
            ReadRecord(*record, index);
            entry.record = std::move(record);
        }
        return *entry.record;
    }

    Reader read_ = nullptr;
    LargeVector<Entry> entries_;
    std::vector<bool> present_; // apart from the entries and small, for it is asked far more often
    int count_ = 0;
};

} // namespace tkvlt
