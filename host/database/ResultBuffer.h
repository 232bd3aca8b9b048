#pragma once

#include "database/ResultCodes.h"
#include "platform/PlatformTypes.h"

#include <cstdarg>
#include <cstddef>
#include <cstdint>

/// A counted run of bytes; `clen` at most 32767.
struct ads_binary {
    short clen;
    char* buf;
};

/// One item of a chain: a type code (a group code or an RT code) and its value. Which member of
/// `resval` counts follows from the type, see host_db::valueKind.
struct resbuf {
    resbuf* rbnext;
    short restype;
    union ads_u_val {
        ads_real rreal;
        ads_real rpoint[3];
        short rint;
        ACHAR* rstring;
        std::int64_t rlname[2];
        Adesk::Int32 rlong;
        Adesk::Int64 mnInt64;
        ads_binary rbinary;
    } resval;
};

/// A single item of `type` with an empty value; release it with acutRelRb. nullptr never.
resbuf* acutNewRb(int type);

/// Releases a chain with its texts and byte runs. Accepts nullptr. Returns RTNORM.
int acutRelRb(resbuf* chain);

/// Builds a chain from pairs of a type code and a value, closed by 0 or RTNONE.
///
/// Values: texts as `const ACHAR*` (copied), reals as double, 16- and 32-bit numbers as int, 64-bit
/// ones as Adesk::Int64, points as ads_point, names as ads_name, byte runs as `const ads_binary*`.
/// Codes without a value (-3, RTLB, RTLE, RTDOTE, RTNIL, RTT, RTVOID) take none. RTDXF0 gives an
/// item of group 0. The chain belongs to the caller; nullptr for an empty list or an unknown code.
resbuf* acutBuildList(int type, ...);

/// Makes `target` a heap copy of `source` (released by acutDelString) and frees what it held.
/// Returns RTNORM.
int acutUpdString(const ACHAR* source, ACHAR*& target);

/// A heap copy of `source`, released by acutDelString; nullptr gives nullptr.
int acutNewString(const ACHAR* source, ACHAR*& target);

/// Releases a text that the platform handed over and sets the pointer to nullptr.
void acutDelString(ACHAR*& text);

namespace host_db {

/// Which member of `resbuf::resval` an item's type uses.
enum class ValueKind { None, Text, Real, Point, Short, Long, Int64, Name, Binary, Unknown };

/// The kind of value that belongs to a type code. Handles (5, 105, 320 to 329, 390 to 399, 480,
/// 481, 1005) are texts, object references (330 to 369) are names.
ValueKind valueKind(int type);

/// What acutBuildList does, for functions that take the same arguments. False, with `chain`
/// nullptr, for an unknown code; an empty list is true and nullptr.
bool buildList(int type, va_list arguments, resbuf*& chain);

/// Number of items of all chains not yet released, for leak checks.
std::size_t liveResultBuffers();

} // namespace host_db
