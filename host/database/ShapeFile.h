#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace host_db {

/// The number, 1 to 65535, of the shape of a name, in any case, in the bytes of a compiled shape
/// file; of one name twice the first counts. Nothing when the file has no such shape, is a file of
/// another kind or is cut off before the shape. Cost: linear in the number of shapes.
///
/// Such a file is a line that tells its kind up to a byte 0x1A, then numbers of two bytes, the
/// lower one first: the least and the greatest shape number, the count of shapes, and for each
/// shape its number and the length of its definition. The definitions follow in the same order,
/// each beginning with the shape's name and a zero byte.
std::optional<std::uint16_t> findShape(std::string_view file, std::wstring_view name);

} // namespace host_db
