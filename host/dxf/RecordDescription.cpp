#include "dxf/RecordDescription.h"

#include "platform/WideCharacters.h"

#include <algorithm>

namespace host_dxf {

bool operator==(const NameValue& a, const NameValue& b) {
    return host_text::compareNoCase(a.name.c_str(), b.name.c_str()) == 0;
}

void addPoint(Fields& fields, int code, double x, double y, double z, bool optional) {
    for (const double coordinate : {x, y, z}) {
        // In a temporary, GCC 12 at -O3 takes the other alternatives for uninitialized.
        const Field field{code, coordinate, optional};
        fields.push_back(field);
        code += 10;
    }
}

namespace {

std::vector<NameValue> namesIn(const RecordDescription& record) {
    std::vector<NameValue> names;
    for (const FieldGroup& group : record.groups) {
        for (const Field& field : group.fields) {
            if (const auto* const name = std::get_if<NameValue>(&field.value)) {
                names.push_back(*name);
            }
        }
    }
    return names;
}

} // namespace

bool sameNames(const RecordDescription& a, const RecordDescription& b) {
    return namesIn(a) == namesIn(b);
}

bool sameValues(const Fields& a, const Fields& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Field& x, const Field& y) {
        return x.code == y.code && x.value == y.value;
    });
}

} // namespace host_dxf
