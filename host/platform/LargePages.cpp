#include "platform/LargePages.h"

#include <sys/mman.h>

#include <memory>

namespace platform_memory {

void askForLargePages(void* storage, std::size_t size) noexcept {
    constexpr std::size_t largePage = std::size_t{2} << 20;
    void* first = storage;
    std::size_t room = size;
    if (size >= largePage && std::align(largePage, largePage, first, room) != nullptr) {
        ::madvise(first, room / largePage * largePage, MADV_HUGEPAGE);
    }
}

} // namespace platform_memory
