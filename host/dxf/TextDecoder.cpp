#include "dxf/TextDecoder.h"

#include "dxf/Numbers.h"
#include "platform/Encoding.h"

#include <algorithm>

namespace host_dxf {

namespace {

constexpr wchar_t replacement = L'\xFFFD';

constexpr const char* multibyteConverters[] = {"CP932", "CP950", "CP949", "CP1361", "CP936"};

/// Reads the four hexadecimal digits at `position`; -1 when they are not there.
long fourHexDigits(std::wstring_view text, std::size_t position) {
    constexpr std::size_t digits = 4;
    if (text.size() < position + digits) {
        return -1;
    }
    long value = 0;
    for (std::size_t i = position; i < position + digits; ++i) {
        const int digit = hexDigit(text[i]);
        if (digit < 0) {
            return -1;
        }
        value = value * 16 + digit;
    }
    return value;
}

/// The value of the \U+hhhh at the start of `text`, -1 when there is none.
long unicodeEscape(std::wstring_view text) {
    return text.starts_with(L"\\U+") ? fourHexDigits(text, 3) : -1;
}

} // namespace

TextDecoder::TextDecoder(std::string_view dwgCodePage, bool utf8) : utf8_(utf8) {
    const std::string converterName = converterNameFor(dwgCodePage);
    utf8_ = utf8_ || converterName == "UTF-8";
    if (!utf8_) {
        page_.emplace(converterName);
    }
}

bool TextDecoder::isPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return byte > 0 && byte != '\\' && byte != '^'; });
}

std::wstring TextDecoder::decode(std::string_view bytes) const {
    if (isPlain(bytes)) {
        return {bytes.begin(), bytes.end()};
    }
    std::wstring text = decodeBytes(bytes);
    std::replace(text.begin(), text.end(), L'\0', replacement);
    return text.find_first_of(L"\\^") == std::wstring::npos ? text : decodeEscapes(text);
}

std::wstring TextDecoder::decodeBytes(std::string_view bytes) const {
    if (utf8_) {
        return host_text::fromUtf8(bytes);
    }
    std::wstring text;
    text.reserve(bytes.size());
    page_->decode(bytes, text);
    return text;
}

// The escapes are looked for in the decoded text: the second byte of a two-byte character may be
// the code of a backslash.
std::wstring TextDecoder::decodeEscapes(const std::wstring& text) const {
    std::wstring decoded;
    decoded.reserve(text.size());
    std::wstring_view rest = text;
    while (!rest.empty()) {
        std::size_t used = decodeEscapeAt(rest, decoded);
        if (used == 0) {
            decoded += rest[0];
            used = 1;
        }
        rest.remove_prefix(used);
    }
    return decoded;
}

std::size_t TextDecoder::decodeEscapeAt(std::wstring_view rest, std::wstring& decoded) const {
    if (rest[0] == L'^' && rest.size() > 1) {
        // A control character is written as a caret and a letter, a caret itself as "^ ".
        const bool control = rest[1] >= L'A' && rest[1] <= L'_';
        if (control || rest[1] == L' ') {
            decoded += control ? static_cast<wchar_t>(rest[1] - L'@') : L'^';
            return 2;
        }
    }
    const std::size_t used = decodeUnicodeAt(rest, decoded);
    return used != 0 ? used : decodeMultibyteAt(rest, decoded);
}

std::size_t TextDecoder::decodeUnicodeAt(std::wstring_view rest, std::wstring& decoded) const {
    constexpr std::size_t escapeLength = 7;
    const long unit = unicodeEscape(rest);
    if (unit < 0) {
        return 0;
    }
    if (unit < 0xD800 || unit > 0xDFFF) {
        decoded += unit == 0 ? replacement : static_cast<wchar_t>(unit);
        return escapeLength;
    }
    const long low = unicodeEscape(rest.substr(escapeLength));
    if (unit < 0xDC00 && low >= 0xDC00 && low <= 0xDFFF) {
        decoded += static_cast<wchar_t>(0x10000 + (unit - 0xD800) * 0x400 + (low - 0xDC00));
        return 2 * escapeLength;
    }
    decoded += replacement;
    return escapeLength;
}

std::size_t TextDecoder::decodeMultibyteAt(std::wstring_view rest, std::wstring& decoded) const {
    constexpr std::size_t escapeLength = 8;
    if (!rest.starts_with(L"\\M+") || rest.size() < escapeLength) {
        return 0;
    }
    const CodePage* const page = multibytePage(rest[3]);
    const long code = fourHexDigits(rest, 4);
    if (page == nullptr || code < 0) {
        return 0;
    }
    const char pair[2] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    const std::size_t from = pair[0] == 0 ? 1 : 0;
    page->decode(std::string_view(pair + from, sizeof pair - from), decoded);
    return escapeLength;
}

const CodePage* TextDecoder::multibytePage(wchar_t digit) const {
    if (digit < L'1' || digit > L'5') {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(digit - L'1');
    LazyPage& lazy = multibytePages_[index];
    std::call_once(lazy.built, [&lazy, index] {
        lazy.page = std::make_unique<const CodePage>(multibyteConverters[index]);
    });
    return lazy.page.get();
}

} // namespace host_dxf
