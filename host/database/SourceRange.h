#pragma once

#include <cstddef>
#include <cstdint>

namespace host_dxf {

/// The bytes of a drawing file that one object was read from.
///
/// `begin` and `end` are offsets into the buffer that the database's DrawingSource owns, `end` one
/// past the last byte. `firstLine` is the number of the first line, counted from 1 (0 in a binary
/// file). `xdataOffset` is the distance in bytes from `begin` to the object's first group 1001 tag,
/// 0 when it has none. An object made in this process has an empty range.
struct SourceRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::uint32_t firstLine = 0;
    std::uint32_t xdataOffset = 0;

    bool isEmpty() const { return begin == end; }
};

/// The record of a file that an object was copied from, of the database with that serial number.
struct CopyOrigin {
    SourceRange record;
    std::uint32_t database = 0;
};

} // namespace host_dxf
