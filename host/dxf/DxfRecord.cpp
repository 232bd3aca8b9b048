#include "dxf/DxfRecord.h"

#include "dxf/Numbers.h"

#include <algorithm>
#include <string>

namespace host_dxf {

std::uint64_t handleOf(const DxfTag& tag) {
    std::uint64_t value = 0;
    if (!parseHandle(tag.text, value)) {
        throw DxfFailure(tag.valuePosition(), "group " + std::to_string(tag.code) +
                                                  " needs a handle, found " +
                                                  quotedForMessage(tag.text));
    }
    return value;
}

const DxfTag* findIn(std::span<const DxfTag> tags, int code) {
    for (const DxfTag& tag : tags) {
        if (tag.code == code) {
            return &tag;
        }
    }
    return nullptr;
}

const DxfTag* DxfRecord::find(int code) const {
    return findIn(tags, code);
}

double DxfRecord::real(int code, double missing) const {
    const DxfTag* const tag = find(code);
    return tag == nullptr ? missing : tag->real;
}

std::int64_t DxfRecord::integer(int code, std::int64_t missing) const {
    const DxfTag* const tag = find(code);
    return tag == nullptr ? missing : tag->integer;
}

std::string_view DxfRecord::text(int code) const {
    const DxfTag* const tag = find(code);
    return tag == nullptr ? std::string_view() : tag->text;
}

std::uint64_t DxfRecord::handle(int code) const {
    const DxfTag* const tag = find(code);
    return tag == nullptr ? 0 : handleOf(*tag);
}

std::span<const DxfTag> DxfRecord::subclass(std::string_view name) const {
    constexpr int marker = 100;
    const auto isMarker = [](const DxfTag& tag) { return tag.code == marker; };
    auto from = std::find_if(tags.begin(), tags.end(), isMarker);
    if (from == tags.end()) {
        return tags;
    }
    from = std::find_if(from, tags.end(), [name](const DxfTag& tag) {
        return tag.code == marker && tag.text == name;
    });
    if (from == tags.end()) {
        return {};
    }
    return {from + 1, std::find_if(from + 1, tags.end(), isMarker)};
}

} // namespace host_dxf
