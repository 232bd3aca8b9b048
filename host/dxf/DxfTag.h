#pragma once

#include "dxf/DxfFailure.h"
#include "dxf/GroupCode.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace host_dxf {

/// One group of a drawing file: its code, its value, and where it stands. The value of a number is
/// parsed already; text and bytes are a view into the source, in the file's own encoding.
struct DxfTag {
    int code = 0;
    ValueKind kind = ValueKind::Unspecified;
    std::uint32_t line = 0;   ///< line of the group code, from 1; 0 in a binary file
    std::size_t begin = 0;    ///< offset of the first byte of the group code
    std::size_t end = 0;      ///< offset behind the value and its line end
    std::string_view text;    ///< the value without line end; raw bytes in a binary file
    double real = 0.0;        ///< kind Real: a finite number
    std::int64_t integer = 0; ///< kinds Int16, Int32, Int64 and Bool

    /// Where the value stands, for messages about it.
    FilePosition valuePosition() const { return {line == 0 ? 0 : line + std::size_t{1}, begin}; }
    /// Where the group code stands.
    FilePosition position() const { return {line, begin}; }
};

} // namespace host_dxf
