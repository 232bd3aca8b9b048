#include "dxf/RecentTexts.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace host_dxf {

namespace {

/// Of the length and of up to eight bytes at each end, which may overlap: texts that differ in the
/// middle alone are rare.
std::size_t numberOf(std::string_view bytes) {
    const std::size_t part = std::min(bytes.size(), sizeof(std::uint64_t));
    std::uint64_t front = 0;
    std::uint64_t back = 0;
    std::memcpy(&front, bytes.data(), part);
    std::memcpy(&back, bytes.data() + bytes.size() - part, part);
    const std::uint64_t number = (front + 31 * back + bytes.size()) * 0x9E3779B97F4A7C15ULL;
    return static_cast<std::size_t>(number >> 48);
}

} // namespace

CString RecentTexts::shortText(std::string_view bytes) const {
    if (!TextDecoder::isPlain(bytes)) {
        return CString(std::wstring_view(decoder_.decode(bytes)));
    }
    std::array<wchar_t, kLongest> characters;
    std::copy(bytes.begin(), bytes.end(), characters.begin());
    return CString(std::wstring_view(characters.data(), bytes.size()));
}

void RecentTexts::read(std::string_view bytes, CString& text) {
    if (bytes.empty() || bytes.size() > kLongest) {
        text = CString(std::wstring_view(decoder_.decode(bytes)));
        return;
    }
    Known& known = known_[numberOf(bytes) % kPlaces];
    if (!known.isOf(bytes)) {
        known.text = shortText(bytes);
        std::copy(bytes.begin(), bytes.end(), known.bytes.begin());
        known.length = bytes.size();
    }
    text = known.text;
}

} // namespace host_dxf
