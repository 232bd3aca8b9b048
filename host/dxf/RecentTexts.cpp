#include "dxf/RecentTexts.h"

#include <cstdint>

namespace host_dxf {

namespace {

/// Longer texts are rarely said twice.
constexpr std::size_t longestKept = 32;

std::size_t numberOf(std::string_view bytes) {
    std::uint32_t number = 2166136261U;
    for (const char byte : bytes) {
        number = (number ^ static_cast<unsigned char>(byte)) * 16777619U;
    }
    return number ^ (number >> 16);
}

} // namespace

CString RecentTexts::of(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > longestKept) {
        return CString(std::wstring_view(decoder_.decode(bytes)));
    }
    Known& known = known_[numberOf(bytes) % kPlaces];
    if (known.bytes != bytes) {
        known.text = CString(std::wstring_view(decoder_.decode(bytes)));
        known.bytes = bytes;
    }
    return known.text;
}

} // namespace host_dxf
