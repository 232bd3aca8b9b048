#pragma once

#include "EmbeddedHost.h"

#include <nlohmann/json.hpp>
#include <string>

namespace pipenet {

using Json = nlohmann::ordered_json;

/// Appends the value as compact JSON: numbers in the shortest form that reads back as the same
/// number, what is not finite as null, texts as UTF-8.
void appendJson(std::string& out, const Json& value);

/// Appends a list of `count` values, each of which `appendItem` appends by its number.
template<class AppendItem>
void appendItems(std::string& out, INT_PTR count, const AppendItem& appendItem) {
    out += '[';
    for (INT_PTR i = 0; i < count; ++i) {
        if (i > 0) {
            out += ',';
        }
        appendItem(i);
    }
    out += ']';
}

/// Append one value in the same form. Points are `[x,y,z]`, an entity is its handle or null for the
/// null id.
void appendValue(std::string& out, double value);
void appendValue(std::string& out, int value);
void appendValue(std::string& out, const CString& text);
void appendValue(std::string& out, const AcGePoint3d& point);
void appendValue(std::string& out, const AcGeVector3d& vector);
void appendValue(std::string& out, const AcDbObjectId& id);
void appendValue(std::string& out, const AcArray<AcDbObjectId>& ids);
void appendValue(std::string& out, const CArray<int, int>& indices);

/// The same as values of the library.
Json pointJson(const AcGePoint3d& point);
Json idJson(const AcDbObjectId& id);
Json textJson(const CString& text);

} // namespace pipenet
