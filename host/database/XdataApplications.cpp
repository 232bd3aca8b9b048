#include "database/XdataApplications.h"

#include "database/NameKey.h"

#include <algorithm>
#include <cwchar>

namespace host_db {

XdataApplications::XdataApplications() {
    setOf({});
}

std::uint32_t XdataApplications::find(const wchar_t* name) const {
    if (name == nullptr) {
        return findFolded(name);
    }
    // Whoever asks once mostly asks for the same names again. What stands there may be another now.
    const std::size_t place = reinterpret_cast<std::uintptr_t>(name) / sizeof(wchar_t);
    Asked& asked = asked_[(place ^ place / kAskedPlaces) % kAskedPlaces];
    if (asked.number != kNone && std::wcscmp(asked.name.c_str(), name) == 0) {
        return asked.number;
    }
    const std::uint32_t number = findFolded(name);
    if (number != kNone) {
        asked.number = kNone;
        asked.name = name;
        asked.number = number;
    }
    return number;
}

std::uint32_t XdataApplications::findFolded(const wchar_t* name) const {
    const auto it = byName_.find(nameKey(name));
    return it == byName_.end() ? kNone : it->second;
}

std::uint32_t XdataApplications::add(const wchar_t* name) {
    const auto [it, isNew] =
        byName_.try_emplace(nameKey(name), static_cast<std::uint32_t>(names_.size()));
    if (isNew) {
        names_.emplace_back(name);
    }
    return it->second;
}

void XdataApplications::forget(const wchar_t* name) {
    byName_.erase(nameKey(name));
    asked_.fill({});
}

std::uint32_t XdataApplications::setOf(std::span<const std::uint32_t> applications) {
    std::vector<std::uint32_t> set(applications.begin(), applications.end());
    std::sort(set.begin(), set.end());
    set.erase(std::unique(set.begin(), set.end()), set.end());
    const auto [it, isNew] = bySet_.try_emplace(set, static_cast<std::uint32_t>(sets_.size()));
    if (isNew) {
        std::uint64_t bits = 0;
        for (const std::uint32_t application : set) {
            bits |= application < kBits ? std::uint64_t{1} << application : 0;
        }
        firstOfSets_.push_back(bits);
        sets_.push_back(std::move(set));
    }
    return it->second;
}

bool XdataApplications::containsLater(std::uint32_t set, std::uint32_t application) const {
    return std::binary_search(sets_[set].begin(), sets_[set].end(), application);
}

std::size_t
XdataApplications::SetHash::operator()(const std::vector<std::uint32_t>& set) const noexcept {
    std::size_t hash = set.size();
    for (const std::uint32_t application : set) {
        hash = hash * 0x9E3779B97F4A7C15ULL + application + 1;
    }
    return hash;
}

} // namespace host_db
