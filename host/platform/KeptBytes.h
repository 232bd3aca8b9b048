#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace platform_memory {

/// The bytes of a file as they were when they were read, whatever another program does to the file
/// afterwards.
///
/// Small ones lie in memory. Large ones lie in a file without a name in the folder for temporary
/// files, which is gone when they are, and are mapped: what was read longer ago need take no memory
/// of the process. Where no such file can be made or filled, or where that folder itself lies in
/// memory or across a network, large ones lie in memory too.
///
/// One thread at a time may read.
class KeptBytes {
public:
    /// From so many bytes on they are large. Reading back what was let go, in its order, costs a
    /// hundredth of what reading a drawing of this size does.
    static constexpr std::size_t kLarge = std::size_t{16} << 20;

    /// Reads the first `size` bytes of an open file, fewer when it has no more. Throws
    /// std::system_error when it cannot be read, std::bad_alloc.
    static KeptBytes ofFile(int descriptor, std::size_t size, std::size_t large = kLarge);
    /// A copy in memory.
    static KeptBytes copyOf(std::string_view bytes);

    std::string_view view() const { return {isInFile() ? mapping_.get() : memory_.get(), size_}; }
    bool isInFile() const { return mapping_ != nullptr; }

    /// Tells that the bytes from this offset on are read next. What was read longer ago may be let
    /// go; it is read back when it is looked at again, so views stay valid.
    void reads(std::size_t offset) const noexcept {
        const std::size_t piece = offset / kPiece;
        if (piece != piece_ && isInFile()) {
            piece_ = piece;
            enterPiece();
        }
    }

private:
    /// The system reads back about so much at a time.
    static constexpr std::size_t kPiece = std::size_t{64} << 10;

    struct Unmap {
        std::size_t size;
        void operator()(const char* first) const noexcept;
    };
    using Mapping = std::unique_ptr<const char, Unmap>;

    KeptBytes(std::unique_ptr<const char[]> memory, std::size_t size)
        : memory_(std::move(memory)), size_(size) {}
    KeptBytes(Mapping mapping, std::size_t size) : mapping_(std::move(mapping)), size_(size) {}

    static KeptBytes inMemory(int descriptor, std::size_t size);
    static Mapping mapped(int descriptor, std::size_t size);
    void enterPiece() const noexcept;

    std::unique_ptr<const char[]> memory_;
    Mapping mapping_{nullptr, {0}};
    std::size_t size_;
    mutable std::size_t piece_ = 0;
    mutable std::size_t entered_ = 0; ///< pieces since all were let go
};

} // namespace platform_memory
