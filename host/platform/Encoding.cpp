#include "platform/Encoding.h"

#include <cstdint>
#include <type_traits>

namespace host_text {
namespace {

constexpr std::uint32_t replacement = 0xFFFD;
constexpr std::uint32_t lastCodePoint = 0x10FFFF;

/// What a lead byte announces: how many bytes follow and which values the first of them may have.
/// Narrowing that range is what shuts out overlong forms, surrogates and too great values.
struct Lead {
    int following;
    std::uint32_t bits;
    unsigned char lowest;
    unsigned char highest;
};

Lead readLead(unsigned char byte) {
    if (byte < 0x80) {
        return {0, byte, 0, 0};
    }
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, byte & 0x1FU, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        const unsigned char lowest = byte == 0xE0 ? 0xA0 : 0x80;
        const unsigned char highest = byte == 0xED ? 0x9F : 0xBF;
        return {2, byte & 0x0FU, lowest, highest};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        const unsigned char lowest = byte == 0xF0 ? 0x90 : 0x80;
        const unsigned char highest = byte == 0xF4 ? 0x8F : 0xBF;
        return {3, byte & 0x07U, lowest, highest};
    }
    return {-1, replacement, 0, 0};
}

std::uint32_t decodeNext(std::string_view text, std::size_t& position) {
    const Lead lead = readLead(static_cast<unsigned char>(text[position++]));
    std::uint32_t value = lead.bits;
    for (int i = 0; i < lead.following; ++i) {
        const auto byte = position < text.size() ? static_cast<unsigned char>(text[position]) : 0U;
        const unsigned lowest = i == 0 ? lead.lowest : 0x80U;
        const unsigned highest = i == 0 ? lead.highest : 0xBFU;
        if (byte < lowest || byte > highest) {
            return replacement;
        }
        value = (value << 6U) | (byte & 0x3FU);
        ++position;
    }
    return value;
}

bool isHighSurrogate(std::uint32_t value) {
    return value >= 0xD800 && value <= 0xDBFF;
}
bool isLowSurrogate(std::uint32_t value) {
    return value >= 0xDC00 && value <= 0xDFFF;
}

void appendWide(std::wstring& out, std::uint32_t value) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (value > 0xFFFF) {
            out.push_back(static_cast<wchar_t>(0xD800 + ((value - 0x10000) >> 10U)));
            value = 0xDC00 + ((value - 0x10000) & 0x3FFU);
        }
    }
    out.push_back(static_cast<wchar_t>(value));
}

std::uint32_t unitAt(std::wstring_view text, std::size_t position) {
    return static_cast<std::make_unsigned_t<wchar_t>>(text[position]);
}

std::uint32_t wideNext(std::wstring_view text, std::size_t& position) {
    const auto value = unitAt(text, position++);
    if (isHighSurrogate(value) && position < text.size()) {
        const auto low = unitAt(text, position);
        if (isLowSurrogate(low)) {
            ++position;
            return 0x10000 + ((value - 0xD800) << 10U) + (low - 0xDC00);
        }
    }
    const bool valid = value <= lastCodePoint && !isHighSurrogate(value) && !isLowSurrogate(value);
    return valid ? value : replacement;
}

void appendUtf8(std::string& out, std::uint32_t value) {
    if (value < 0x80) {
        out.push_back(static_cast<char>(value));
        return;
    }
    const int following = value < 0x800 ? 1 : (value < 0x10000 ? 2 : 3);
    const unsigned marks[] = {0xC0U, 0xE0U, 0xF0U};
    out.push_back(static_cast<char>(marks[following - 1] | (value >> (6U * following))));
    for (int i = following - 1; i >= 0; --i) {
        out.push_back(static_cast<char>(0x80U | ((value >> (6U * i)) & 0x3FU)));
    }
}

} // namespace

std::wstring fromUtf8(std::string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        appendWide(out, decodeNext(text, position));
    }
    return out;
}

std::string toUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        appendUtf8(out, wideNext(text, position));
    }
    return out;
}

} // namespace host_text
