#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace host_dxf {

/// The handle of another object.
struct HandleValue {
    std::uint64_t handle = 0;
    friend bool operator==(const HandleValue&, const HandleValue&) = default;
};

/// The name of a table's record: names that differ in case alone are one.
struct NameValue {
    std::wstring name;
    friend bool operator==(const NameValue& a, const NameValue& b);
};

/// Characters of the format's own, ASCII: markers, file names of no language.
struct PlainValue {
    std::string_view text;
    friend bool operator==(const PlainValue&, const PlainValue&) = default;
};

/// A value as a group holds it. Bytes are those of a binary chunk.
using FieldValue = std::variant<double, std::int64_t, std::wstring, NameValue, HandleValue,
                                PlainValue, std::string>;

/// One group of a record. `optional` marks a value that readers take for granted, so that a new
/// record can leave it out. Of a group of flags only the bits of `mask` are described; without any
/// the value is for new records alone.
struct Field {
    int code = 0;
    FieldValue value;
    bool optional = false;
    std::int64_t mask = -1;
};

using Fields = std::vector<Field>;

/// The groups behind one subclass marker.
struct FieldGroup {
    std::string_view marker;
    Fields fields;
};

/// Groups that repeat, at the end of the last field group: vertices, knots and points.
struct FieldList {
    /// The codes that belong to the list; the first one opens an element.
    std::vector<int> codes;
    std::vector<Fields> elements;
    /// Elements have no place of their own in the record: after a change all are written anew.
    bool scattered = false;
};

/// What the host models of a record, in the order in which it is written. Two descriptions of one
/// kind of object have the same fields in the same order.
struct RecordDescription {
    std::string_view type; ///< empty for what the host does not describe
    std::vector<FieldGroup> groups;
    FieldList list;
};

/// Appends the three groups of a point: `code`, and 10 and 20 above it.
void addPoint(Fields& fields, int code, double x, double y, double z, bool optional = false);

bool sameValues(const Fields& a, const Fields& b);

/// All names of records are the same in two descriptions of one kind of object.
bool sameNames(const RecordDescription& a, const RecordDescription& b);

} // namespace host_dxf
