#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace module_tests {

using Places = std::vector<const void*>;

/// Whether the fields lie within the object, each behind the one before.
inline ::testing::AssertionResult standInThisOrder(const void* object, std::size_t size,
                                                   const Places& fields) {
    const char* before = static_cast<const char*>(object) - 1;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const char* field = static_cast<const char*>(fields[i]);
        if (field <= before || field >= static_cast<const char*>(object) + size) {
            return ::testing::AssertionFailure() << "field " << i << " is out of order";
        }
        before = field;
    }
    return ::testing::AssertionSuccess();
}

} // namespace module_tests
