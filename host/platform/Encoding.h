#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace host_text {

/// Decodes UTF-8. Each maximal ill-formed piece becomes one U+FFFD; everything else is kept, null
/// characters and a byte-order mark included.
std::wstring fromUtf8(std::string_view text);

/// Encodes as UTF-8. A lone surrogate or a value beyond U+10FFFF becomes U+FFFD; two surrogates
/// that form a pair are joined.
std::string toUtf8(std::wstring_view text);

/// The number of a character, which itself is signed on some systems.
inline std::uint32_t codeOf(wchar_t character) {
    return static_cast<std::make_unsigned_t<wchar_t>>(character);
}

} // namespace host_text
