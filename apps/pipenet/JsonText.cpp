#include "JsonText.h"

#include "HandleText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace pipenet {

namespace {

/// Whether JSON has the byte in a text as it stands. Of texts with others the library judges.
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

void appendCoordinates(std::string& out, double x, double y, double z) {
    out += '[';
    appendValue(out, x);
    out += ',';
    appendValue(out, y);
    out += ',';
    appendValue(out, z);
    out += ']';
}

} // namespace

// NOLINTNEXTLINE(misc-no-recursion): as deep as the answer's form, a handful of levels
void appendJson(std::string& out, const Json& value) {
    if (value.is_object()) {
        out += '{';
        for (auto item = value.begin(); item != value.end(); ++item) {
            if (item != value.begin()) {
                out += ',';
            }
            appendText(out, item.key());
            out += ':';
            appendJson(out, item.value());
        }
        out += '}';
    } else if (value.is_array()) {
        appendItems(out, static_cast<INT_PTR>(value.size()),
                    [&](INT_PTR i) { appendJson(out, value[static_cast<std::size_t>(i)]); });
    } else if (value.is_number_float()) {
        appendValue(out, value.get<double>());
    } else if (value.is_string()) {
        appendText(out, value.get_ref<const std::string&>());
    } else {
        out += value.dump();
    }
}

void appendValue(std::string& out, double value) {
    if (!std::isfinite(value)) {
        out += "null";
        return;
    }
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), written.ptr);
}

void appendValue(std::string& out, int value) {
    fmt::format_to(std::back_inserter(out), "{}", value);
}

void appendValue(std::string& out, const CString& text) {
    appendText(out, utf8(text));
}

void appendValue(std::string& out, const AcGePoint3d& point) {
    appendCoordinates(out, point.x, point.y, point.z);
}

void appendValue(std::string& out, const AcGeVector3d& vector) {
    appendCoordinates(out, vector.x, vector.y, vector.z);
}

void appendValue(std::string& out, const AcDbObjectId& id) {
    if (id.isNull()) {
        out += "null";
    } else {
        appendText(out, handleText(id));
    }
}

void appendValue(std::string& out, const AcArray<AcDbObjectId>& ids) {
    appendItems(out, ids.length(), [&](INT_PTR i) { appendValue(out, ids[static_cast<int>(i)]); });
}

void appendValue(std::string& out, const CArray<int, int>& indices) {
    appendItems(out, indices.GetSize(), [&](INT_PTR i) { appendValue(out, indices[i]); });
}

Json pointJson(const AcGePoint3d& point) {
    return Json::array({point.x, point.y, point.z});
}

Json idJson(const AcDbObjectId& id) {
    return id.isNull() ? Json(nullptr) : Json(handleText(id));
}

Json textJson(const CString& text) {
    return utf8(text);
}

} // namespace pipenet
