#pragma once

#include <cstdint>

namespace host_dxf {

/// Groups that divide a record into parts.
inline constexpr int subclassMarker = 100;
inline constexpr int embeddedObjectMarker = 101;
inline constexpr int bracketCode = 102; ///< "{..." opens an application's groups, "}" closes them

/// Groups of extended data: all from the first to the last.
inline constexpr int firstXdataCode = 1000;
inline constexpr int textCode = 1000;
inline constexpr int applicationCode = 1001; ///< begins an application's section
inline constexpr int lastXdataCode = 1071;

/// What the value of a group is, by the group code ranges of the published DXF reference.
enum class ValueKind : std::uint8_t {
    Unspecified, ///< a code the reference leaves open: kept as text, never interpreted
    Text,
    Handle, ///< hexadecimal text in both forms of the file
    Real,
    Int16,
    Int32,
    Int64,
    Bool,
    Chunk,  ///< bytes: hexadecimal digits in a text file, length-prefixed in a binary one
    Comment ///< group 999
};

/// The kind of value that group `code` carries. Any int is accepted; codes outside the reference
/// give ValueKind::Unspecified. Constant time.
ValueKind valueKind(int code);

/// True for the kinds whose value is a whole number.
constexpr bool isInteger(ValueKind kind) {
    return kind == ValueKind::Int16 || kind == ValueKind::Int32 || kind == ValueKind::Int64 ||
           kind == ValueKind::Bool;
}

} // namespace host_dxf
