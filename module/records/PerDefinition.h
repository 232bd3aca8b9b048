#pragma once

#include <unordered_map>

#include "platform.h"

namespace tkvlt {

/// What is found out once of each block definition: a drawing has few, and most references follow
/// one of the same definition.
template<class Finding>
class PerDefinition {
public:
    /// @param find gives the finding of a definition that is asked for the first time.
    template<class Find>
    Finding Of(const AcDbObjectId& definition, Find find) {
        if (known_.empty() || definition != lastDefinition_) {
            auto known = known_.find(definition);
            if (known == known_.end()) {
                known = known_.emplace(definition, find()).first;
            }
            lastDefinition_ = definition;
            last_ = known->second;
        }
        return last_;
    }

private:
    std::unordered_map<AcDbObjectId, Finding> known_;
    AcDbObjectId lastDefinition_;
    Finding last_{};
};

} // namespace tkvlt
