#pragma once

#include "JsonText.h"
#include "TKVltSearchModule18.h"

namespace pipenet {

/// The records of a result as JSON, fields in a fixed order. Flags are numbers.
Json wellJson(const Well& well);
Json gravitySegJson(const GravitySeg& seg);
/// Not const: the segment's own operations, which give length and label, are not.
Json pressureSegJson(PressureSeg& seg);

/// `kind`, and the record of that kind beside null for the other.
Json segJson(Seg& seg);

} // namespace pipenet
