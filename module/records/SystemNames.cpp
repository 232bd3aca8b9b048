#include "records/SystemNames.h"

namespace tkvlt {

int SystemNames::Look(const CString& name) {
    const auto [place, isNew] = numbers_.try_emplace(name, static_cast<int>(names_.size()));
    if (isNew) {
        names_.push_back(name);
    }
    last_ = place->second;
    return last_;
}

} // namespace tkvlt
