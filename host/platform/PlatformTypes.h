#pragma once

#include <cstdint>

/// Plain names of the platform's interface: text and number types that every room uses.
using ACHAR = wchar_t;
using TCHAR = wchar_t;
using LPCTSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using LPCSTR = const char*;
using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using INT_PTR = std::intptr_t;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

/// Makes a literal the platform's wide text.
#define ACRX_T(x) L##x

/// Number types of the platform's extension interface.
namespace Adesk {
using Int8 = std::int8_t;
using UInt8 = std::uint8_t;
using Int16 = std::int16_t;
using UInt16 = std::uint16_t;
using Int32 = std::int32_t;
using UInt32 = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;
using IntPtr = std::intptr_t;
using UIntPtr = std::uintptr_t;
/// Truth values are ints, exactly 0 or 1: callers compare them with each other and with 1.
using Boolean = int;
inline constexpr Boolean kFalse = 0;
inline constexpr Boolean kTrue = 1;
} // namespace Adesk

using ads_real = double;
/// Three coordinates: x, y, z in drawing units.
using ads_point = ads_real[3];
/// The name of an entity or of a selection set; both numbers 0 mean no name.
using ads_name = std::int64_t[2];
