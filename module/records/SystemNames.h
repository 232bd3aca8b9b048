#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "platform.h"

namespace tkvlt {

/// The names of the systems of a drawing, by number: what is kept of each of its many thousand
/// entities then needs no text of its own.
class SystemNames {
public:
    /// The number of a name, the next one for a name that is new. Of entities that follow one
    /// another most are of one system, so the last name costs one comparison, any other the
    /// logarithm of their number.
    int NumberOf(const CString& name) {
        return !names_.empty() && (*this)[last_].Compare(name) == 0 ? last_ : Look(name);
    }
    /// @param number one that `NumberOf` gave.
    const CString& operator[](int number) const { return names_[static_cast<std::size_t>(number)]; }

private:
    int Look(const CString& name);

    std::vector<CString> names_;
    std::map<CString, int> numbers_;
    int last_ = 0;
};

} // namespace tkvlt
