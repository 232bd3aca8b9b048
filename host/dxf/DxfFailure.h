#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace host_dxf {

/// A place in a drawing file: the line of a text file (from 1), or 0 and a byte offset in a binary
/// one.
struct FilePosition {
    std::size_t line = 0;
    std::size_t offset = 0;
};

/// Thrown inside this room when a drawing cannot be read; it never leaves loadDrawing.
class DxfFailure : public std::exception {
public:
    DxfFailure(FilePosition position, std::string cause)
        : position_(position), cause_(std::move(cause)) {}

    const char* what() const noexcept override { return cause_.c_str(); }
    const FilePosition& position() const { return position_; }
    const std::string& cause() const { return cause_; }

private:
    FilePosition position_;
    std::string cause_;
};

/// `text` between double quotes, cut after 40 bytes, bytes outside printable ASCII shown as dots:
/// what a damaged file holds must not reach a terminal raw.
std::string quotedForMessage(std::string_view text);

} // namespace host_dxf
