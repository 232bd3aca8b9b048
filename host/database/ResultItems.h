#pragma once

#include "database/ResultBuffer.h"
#include "geometry/AcGePoint3d.h"
#include "platform/CString.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace host_db {

/// One item kept inside an object: the value of a resbuf without the chain's pointers. Numbers of
/// every width are kept as 64-bit ones, names as the first word of the name.
struct ResultItem {
    short type = 0;
    std::variant<std::monostate, CString, double, AcGePoint3d, std::int64_t, std::string> value;
};

using ResultItems = std::vector<ResultItem>;

/// Copies a chain; nullptr gives an empty list.
ResultItems itemsOf(const resbuf* chain);

/// Builds a chain of the items, owned by the caller (acutRelRb); nullptr for an empty list.
resbuf* chainOf(const ResultItems& items);

} // namespace host_db
