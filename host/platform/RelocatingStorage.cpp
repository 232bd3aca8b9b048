#include "platform/RelocatingStorage.h"

namespace host_storage {

// Not in the templates: a compiler that sees a pointer and its reallocation together warns of paths
// that no array takes.
void* resize(void* memory, std::size_t bytes) noexcept {
    return std::realloc(memory, bytes);
}

} // namespace host_storage
