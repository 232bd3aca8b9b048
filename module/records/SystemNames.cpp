#include "records/SystemNames.h"

namespace tkvlt {

int SystemNames::Look(const CString& name) {
    const auto known = numbers_.find(name);
    if (known != numbers_.end()) {
        last_ = known->second;
        return last_;
    }
    // The name first: a number must never stand for no name, also when memory runs out between.
    names_.push_back(name);
    const int number = static_cast<int>(names_.size()) - 1;
    numbers_.emplace(name, number);
    last_ = number;
    return last_;
}

} // namespace tkvlt
