#pragma once

#include <cstddef>
#include <cstdint>

namespace host_dxf {

/// The bytes of a drawing file that one object was read from.
///
/// `begin` and `end` are offsets into the buffer that the database's DrawingSource owns, `end` one
/// past the last byte. `firstLine` is the number of the first line, counted from 1 (0 in a binary
/// file). `xdata` is the number under which the source has noted the object's extended data, 0 when
/// it has none. An object made in this process has an empty range.
struct SourceRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::uint32_t firstLine = 0;
    std::uint32_t xdata = 0;

    bool isEmpty() const { return begin == end; }
};

/// The record of a file that an object was copied from, of the database with that serial number.
struct CopyOrigin {
    SourceRange record;
    std::uint32_t database = 0;
};

} // namespace host_dxf
