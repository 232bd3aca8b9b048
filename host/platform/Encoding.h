#pragma once

#include <string>
#include <string_view>

namespace host_text {

/// Decodes UTF-8. Each maximal ill-formed piece becomes one U+FFFD; everything else is kept, null
/// characters and a byte-order mark included.
std::wstring fromUtf8(std::string_view text);

/// Encodes as UTF-8. A lone surrogate or a value beyond U+10FFFF becomes U+FFFD; two surrogates
/// that form a pair are joined.
std::string toUtf8(std::wstring_view text);

} // namespace host_text
