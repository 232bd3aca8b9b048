#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tkvlt {

/// A list of indices that takes no memory of its own while they are few, as the answers to what
/// lies at a place mostly are.
class Indices {
public:
    using value_type = int;
    using iterator = int*;
    using const_iterator = const int*;

    /// So many lie in the list itself.
    static constexpr std::size_t kFew = 8;

    bool empty() const { return size() == 0; }
    std::size_t size() const { return many_.empty() ? few_ : many_.size(); }
    iterator begin() { return many_.empty() ? own_.data() : many_.data(); }
    iterator end() { return begin() + size(); }
    const_iterator begin() const { return many_.empty() ? own_.data() : many_.data(); }
    const_iterator end() const { return begin() + size(); }
    int operator[](std::size_t at) const { return begin()[at]; }

    void push_back(int index) {
        if (many_.empty() && few_ < kFew) {
            own_[few_++] = index;
        } else {
            PushBackMany(index);
        }
    }

    /// Appends the indices of another list than this.
    void Append(const Indices& others) {
        for (const int index : others) {
            push_back(index);
        }
    }

    template<class Condition>
    void EraseIf(Condition condition) {
        Shorten(std::remove_if(begin(), end(), condition));
    }

    /// Puts the indices into increasing order, each once.
    void SortUnique() {
        if (size() > 1) {
            std::sort(begin(), end());
            Shorten(std::unique(begin(), end()));
        }
    }

    /// The same indices in the same order, in whatever list.
    template<class List>
    friend bool operator==(const Indices& one, const List& other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end());
    }

private:
    void PushBackMany(int index) {
        if (many_.empty()) {
            constexpr std::size_t grown = 4 * kFew;
            many_.reserve(grown);
            many_.assign(own_.begin(), own_.end());
            few_ = 0;
        }
        many_.push_back(index);
    }

    void Shorten(const int* newEnd) {
        const auto length = static_cast<std::size_t>(newEnd - begin());
        if (many_.empty()) {
            few_ = length;
        } else {
            many_.resize(length);
        }
    }

    std::array<int, kFew> own_{};
    std::size_t few_ = 0;   // so many lie in `own_`; 0 as soon as they lie in `many_`
    std::vector<int> many_; // empty while they are few
};

} // namespace tkvlt
