#pragma once

#include "platform/CString.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace host_db {

/// Which applications' data the objects of one database carry.
///
/// Applications are numbered from 0 in the order in which they were first named. A set of them is
/// kept once however many objects have it; an object holds the set's number alone. Set 0 is empty.
class XdataApplications {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

    XdataApplications();

    /// The number of a name in any case, kNone for one that was never registered.
    std::uint32_t find(const wchar_t* name) const;
    /// The number of a name, given now when it is new.
    std::uint32_t add(const wchar_t* name);
    /// Takes a name away, which is new again the next time; its number is not given again.
    void forget(const wchar_t* name);
    /// The name as it was first spelled.
    const CString& name(std::uint32_t application) const { return names_[application]; }
    std::size_t count() const { return names_.size(); }

    /// The set of these applications; order and repetition are of no account.
    std::uint32_t setOf(std::span<const std::uint32_t> applications);
    /// The applications of a set in ascending order.
    const std::vector<std::uint32_t>& members(std::uint32_t set) const { return sets_[set]; }
    bool contains(std::uint32_t set, std::uint32_t application) const {
        return application < kBits ? (firstOfSets_[set] >> application & 1U) != 0
                                   : containsLater(set, application);
    }
    /// Number of distinct sets, the empty one included.
    std::size_t setCount() const { return sets_.size(); }

private:
    struct SetHash {
        std::size_t operator()(const std::vector<std::uint32_t>& set) const noexcept;
    };

    /// A spelling that was asked for and found, so that it need not be folded to be found again.
    struct Asked {
        std::wstring name;
        std::uint32_t number = kNone;
    };
    static constexpr std::size_t kAskedPlaces = 64;
    static constexpr std::uint32_t kBits = 64;

    bool containsLater(std::uint32_t set, std::uint32_t application) const;

    std::uint32_t findFolded(const wchar_t* name) const;

    std::vector<CString> names_;
    std::unordered_map<std::wstring, std::uint32_t> byName_;
    std::vector<std::vector<std::uint32_t>> sets_;
    std::vector<std::uint64_t> firstOfSets_; // a bit for each of the first 64 applications
    std::unordered_map<std::vector<std::uint32_t>, std::uint32_t, SetHash> bySet_;
    /// By where the spelling stood, for the names are mostly constants of a program. Of two in one
    /// place the later stays.
    mutable std::array<Asked, kAskedPlaces> asked_;
};

} // namespace host_db
