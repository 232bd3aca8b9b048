#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host_dxf {

/// `text` without blanks and tabs at both ends.
std::string_view trimBlanks(std::string_view text);

/// Reads the whole of `text` (blanks at both ends allowed, a leading + too) as a finite decimal
/// number; false when it is none. A number too small for a double is zero. The process locale plays
/// no part.
bool parseReal(std::string_view text, double& value);

/// Reads the whole of `text` as a decimal whole number. Some programs write whole numbers with a
/// fraction of zeros; that is accepted.
bool parseInteger(std::string_view text, std::int64_t& value);

/// Reads the whole of `text` as a hexadecimal handle of at most 16 digits.
bool parseHandle(std::string_view text, std::uint64_t& value);

/// True for an even number of hexadecimal digits, blanks at both ends allowed.
bool isHexBytes(std::string_view text);

/// The shortest text that reads back as exactly this number, always with a decimal point. The
/// number must be finite.
std::string realText(double value);

/// The number as upper-case hexadecimal text without leading zeros.
std::string handleText(std::uint64_t handle);

/// The value 0 to 15 of a hexadecimal digit, -1 for any other character.
int hexDigit(wchar_t digit);

} // namespace host_dxf
