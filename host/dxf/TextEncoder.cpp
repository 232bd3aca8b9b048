#include "dxf/TextEncoder.h"

#include "dxf/Numbers.h"
#include "platform/Encoding.h"

#include <cstdio>

namespace host_dxf {

namespace {

constexpr std::size_t unitCount = 0x10000;

void appendEscape(unsigned unit, std::string& bytes) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\U+%04X", unit);
    bytes += escape;
}

void appendEscapes(wchar_t character, std::string& bytes) {
    const std::uint32_t value = host_text::codeOf(character);
    if (value < unitCount) {
        appendEscape(value, bytes);
        return;
    }
    const unsigned above = value - static_cast<unsigned>(unitCount);
    appendEscape(0xD800 + (above >> 10), bytes);
    appendEscape(0xDC00 + (above & 0x3FF), bytes);
}

/// `text` starts with what a reader would take for an escape, although its characters are meant.
bool looksLikeEscape(std::wstring_view text) {
    const bool unicode = text.starts_with(L"\\U+");
    if (!unicode && !text.starts_with(L"\\M+")) {
        return false;
    }
    const std::size_t first = unicode ? 3 : 4;
    std::size_t digits = 0;
    while (digits < 4 && first + digits < text.size() && hexDigit(text[first + digits]) >= 0) {
        ++digits;
    }
    return digits == 4;
}

} // namespace

TextEncoder::TextEncoder(const TextDecoder& decoder) : utf8_(decoder.isUtf8()) {
    if (utf8_ || decoder.page() == nullptr) {
        return;
    }
    codes_.resize(unitCount, 0);
    for (const CodePage::Character& character : decoder.page()->characters()) {
        std::uint16_t& code = codes_[character.unit];
        // Of several codes of one character the first is the page's own, the others are extensions.
        code = code == 0 ? character.code : code;
    }
}

std::string TextEncoder::encode(std::wstring_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (character < L' ') {
            bytes += '^';
            bytes += static_cast<char>(character + L'@');
        } else if (character == L'^') {
            bytes += "^ ";
        } else if (character == L'\\' && looksLikeEscape(text.substr(i))) {
            appendEscape(L'\\', bytes);
        } else if (character < 0x80) {
            bytes += static_cast<char>(character);
        } else {
            encodeCharacter(character, bytes);
        }
    }
    return bytes;
}

void TextEncoder::encodeCharacter(wchar_t character, std::string& bytes) const {
    if (utf8_) {
        bytes += host_text::toUtf8(std::wstring_view(&character, 1));
        return;
    }
    const std::size_t unit = host_text::codeOf(character);
    const std::uint16_t code = unit < codes_.size() ? codes_[unit] : std::uint16_t{0};
    if (code == 0) {
        appendEscapes(character, bytes);
        return;
    }
    if (code > 0xFF) {
        bytes += static_cast<char>(code >> 8);
    }
    bytes += static_cast<char>(code & 0xFF);
}

} // namespace host_dxf
