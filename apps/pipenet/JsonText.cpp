#include "JsonText.h"

#include "HandleText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace pipenet {

namespace {

void appendNumber(std::string& out, double value) {
    if (!std::isfinite(value)) {
        out += "null";
        return;
    }
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), written.ptr);
}

template<class Integer>
void appendInteger(std::string& out, Integer value) {
    std::array<char, 24> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), written.ptr);
}

/// Whether JSON has the byte in a text as it stands. Of what is not ASCII the library judges.
bool isPlain(char byte) {
    return byte >= ' ' && byte < '\x7F' && byte != '"' && byte != '\\';
}

void appendText(std::string& out, const std::string& text) {
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        out += '"';
        out += text;
        out += '"';
    } else {
        out += Json(text).dump();
    }
}

template<class Append>
void appendList(std::string& out, const Json& list, const Append& append) {
    bool first = true;
    for (auto item = list.begin(); item != list.end(); ++item) {
        if (!first) {
            out += ',';
        }
        first = false;
        append(item);
    }
}

} // namespace

// NOLINTNEXTLINE(misc-no-recursion): as deep as the answer's form, a handful of levels
void appendJson(std::string& out, const Json& value) {
    if (value.is_object()) {
        out += '{';
        appendList(out, value, [&out](auto item) {
            appendText(out, item.key());
            out += ':';
            appendJson(out, item.value());
        });
        out += '}';
    } else if (value.is_array()) {
        out += '[';
        appendList(out, value, [&out](auto item) { appendJson(out, item.value()); });
        out += ']';
    } else if (value.is_number_float()) {
        appendNumber(out, value.get<double>());
    } else if (value.is_number_unsigned()) {
        appendInteger(out, value.get<Json::number_unsigned_t>());
    } else if (value.is_number_integer()) {
        appendInteger(out, value.get<Json::number_integer_t>());
    } else if (value.is_string()) {
        appendText(out, value.get_ref<const std::string&>());
    } else {
        out += value.dump();
    }
}

Json pointJson(const AcGePoint3d& point) {
    return Json::array({point.x, point.y, point.z});
}

Json vectorJson(const AcGeVector3d& vector) {
    return Json::array({vector.x, vector.y, vector.z});
}

Json idJson(const AcDbObjectId& id) {
    return id.isNull() ? Json(nullptr) : Json(handleText(id));
}

Json textJson(const CString& text) {
    return utf8(text);
}

Json idsJson(const AcArray<AcDbObjectId>& ids) {
    Json list = Json::array();
    for (int i = 0; i < ids.length(); ++i) {
        list.push_back(idJson(ids[i]));
    }
    return list;
}

Json indicesJson(const CArray<int, int>& indices) {
    Json list = Json::array();
    for (INT_PTR i = 0; i < indices.GetSize(); ++i) {
        list.push_back(indices[i]);
    }
    return list;
}

} // namespace pipenet
