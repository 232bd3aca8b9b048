#pragma once

#include "EmbeddedHost.h"

#include <nlohmann/json.hpp>
#include <string>

namespace pipenet {

using Json = nlohmann::ordered_json;

/// Appends the value as compact JSON: numbers in the shortest form that reads back as the same
/// number, what is not finite as null, texts as UTF-8.
void appendJson(std::string& out, const Json& value);

/// `[x,y,z]`.
Json pointJson(const AcGePoint3d& point);
Json vectorJson(const AcGeVector3d& vector);
/// The entity's handle, null for the null id.
Json idJson(const AcDbObjectId& id);
Json textJson(const CString& text);
Json idsJson(const AcArray<AcDbObjectId>& ids);
Json indicesJson(const CArray<int, int>& indices);

} // namespace pipenet
