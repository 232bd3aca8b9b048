#pragma once

#include <cstddef>

namespace module_tests {

/// While it lives, the request for memory behind the next `requests` ones fails, and those behind
/// that one succeed again. Requests of the whole process count; one at a time may live.
class FailingMemory {
public:
    explicit FailingMemory(std::size_t requests);
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    ~FailingMemory();

    /// Whether the request was made, and failed.
    bool hasFailed() const;
};

} // namespace module_tests
