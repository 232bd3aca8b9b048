#include "FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

/// Requests that still succeed; negative when none is to fail.
long long remaining = -1;
bool failed = false;

void* request(std::size_t size) {
    if (remaining == 0) {
        remaining = -1;
        failed = true;
        throw std::bad_alloc();
    }
    if (remaining > 0) {
        --remaining;
    }
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) {
    return request(size);
}
void* operator new[](std::size_t size) {
    return request(size);
}
// The forms that answer with null are replaced too: whoever takes memory by one of them (a stable
// sort, for its scratch) gives it back through the forms below.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return request(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace module_tests {

FailingMemory::FailingMemory(std::size_t requests) {
    failed = false;
    remaining = static_cast<long long>(requests);
}

FailingMemory::~FailingMemory() {
    remaining = -1;
}

bool FailingMemory::hasFailed() const {
    return failed;
}

} // namespace module_tests
