#pragma once

#include <cstddef>

namespace platform_memory {

/// Asks the system to back storage by large pages, of two mebibytes on most machines.
///
/// What is looked up all over large storage lies on another page each time: with large pages the
/// processor finds them sooner, and fewer are handed out. Whether it gets them is up to the system,
/// and nothing depends on it. Storage without a whole large page is left alone. Storage that grows
/// in place is not for this: the system can move it without copying only as long as all of it is
/// of one kind.
void askForLargePages(void* storage, std::size_t size) noexcept;

} // namespace platform_memory
