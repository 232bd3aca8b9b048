#pragma once

#include "JsonObject.h"
#include "TKVltSearchModule18.h"

namespace pipenet {

/// Append a record of a result as JSON, fields in a fixed order. Flags are numbers.
void appendWell(std::string& out, const Well& well);
void appendGravitySeg(std::string& out, const GravitySeg& seg);
/// Not const: the segment's own operations, which give length and label, are not.
void appendPressureSeg(std::string& out, PressureSeg& seg);

/// Adds `kind`, and the record of that kind beside null for the other.
void addSeg(JsonObject& object, Seg& seg);

} // namespace pipenet
