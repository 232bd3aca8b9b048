#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>

namespace tkvlt {

/// A map whose iterators do not go where there is no entry: reading, stepping over or erasing the
/// end, and using an iterator of another map, throw std::out_of_range.
template<class Key, class Value>
class CheckedMap {
    using Entries = std::map<Key, Value>;

public:
    class Iterator {
    public:
        /// The entry's key and value.
        typename Entries::value_type& operator*() const {
            Check(at_ != owner_->entries_.end());
            return *at_;
        }
        typename Entries::value_type* operator->() const { return &**this; }
        Iterator& operator++() {
            Check(at_ != owner_->entries_.end());
            ++at_;
            return *this;
        }
        bool operator==(const Iterator& other) const {
            Check(owner_ == other.owner_);
            return at_ == other.at_;
        }
        bool operator!=(const Iterator& other) const { return !(*this == other); }

    private:
        friend class CheckedMap;
        Iterator(const CheckedMap& owner, typename Entries::iterator at)
            : owner_(&owner), at_(at) {}

        const CheckedMap* owner_;
        typename Entries::iterator at_;
    };

    Iterator Begin() { return Iterator(*this, entries_.begin()); }
    Iterator End() { return Iterator(*this, entries_.end()); }
    /// The entry of a key, the end when there is none.
    Iterator Find(const Key& key) { return Iterator(*this, entries_.find(key)); }
    /// The value of a key, made when there is none.
    Value& operator[](const Key& key) { return entries_[key]; }
    std::size_t Size() const { return entries_.size(); }

    /// Erases every entry with this key and gives their number.
    std::size_t Erase(const Key& key) { return entries_.erase(key); }
    /// Erases the entry that an iterator stands at and gives the next place.
    Iterator Erase(const Iterator& at) {
        Check(at.owner_ == this && at.at_ != entries_.end());
        return Iterator(*this, entries_.erase(at.at_));
    }
    void Clear() { entries_.clear(); }

private:
    static void Check(bool valid) {
        if (!valid) {
            throw std::out_of_range("invalid map/set<T> iterator");
        }
    }

    Entries entries_;
};

} // namespace tkvlt
