#include "platform/TextToNumber.h"

#include "platform/WideCharacters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>

namespace {

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

const wchar_t* skipSpace(const wchar_t* text) {
    while (host_text::isSpace(*text)) {
        ++text;
    }
    return text;
}

/// Skips one sign; whether it was a minus.
bool readSign(const wchar_t*& text) {
    const bool negative = *text == L'-';
    if (negative || *text == L'+') {
        ++text;
    }
    return negative;
}

/// Appends digits to `number`; how many there were.
int readDigits(const wchar_t*& text, std::string& number) {
    int count = 0;
    for (; isDigit(*text); ++text, ++count) {
        number.push_back(static_cast<char>('0' + (*text - L'0')));
    }
    return count;
}

/// Appends an exponent if one with at least a digit stands at `text`.
void readExponent(const wchar_t*& text, std::string& number) {
    if (*text != L'e' && *text != L'E') {
        return;
    }
    const wchar_t* rest = text + 1;
    std::string exponent = readSign(rest) ? "e-" : "e";
    if (readDigits(rest, exponent) > 0) {
        number += exponent;
        text = rest;
    }
}

/// Decimal exponent written at the end of `number`, saturated far outside a double's range.
std::int64_t writtenExponent(const std::string& number, std::size_t mark) {
    if (mark == std::string::npos) {
        return 0;
    }
    constexpr std::int64_t farAway = INT64_C(1) << 60;
    std::int64_t value = 0;
    const char* begin = number.data() + mark + 1;
    const auto result = std::from_chars(begin, number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range || std::abs(value) > farAway) {
        return *begin == '-' ? -farAway : farAway;
    }
    return value;
}

/// Whether a nonzero number out of a double's range is too great, rather than too small.
bool isTooGreat(const std::string& number) {
    const std::size_t mark = number.find('e');
    const std::string digits = number.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string::npos) {
        return false;
    }
    const auto magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return magnitude + writtenExponent(number, mark) > 0;
}

double toDouble(const std::string& number) {
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return isTooGreat(number) ? HUGE_VAL : 0.0;
    }
    return value;
}

/// The number of at most fifteen digits that stands at `text`, which is moved behind it; false,
/// with nothing moved, for any other. So many digits are a double without rounding, and so is the
/// power of ten that they are divided by: the quotient is the correctly rounded one (W. D. Clinger,
/// How to read floating point numbers accurately, 1990).
bool readShortNumber(const wchar_t*& text, double& value) {
    constexpr int mostDigits = 15;
    constexpr std::array<double, mostDigits + 1> powers = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const wchar_t* rest = text;
    std::int64_t whole = 0;
    std::size_t decimals = 0;
    int digits = 0;
    bool hasPoint = false;
    for (; digits <= mostDigits && (isDigit(*rest) || (*rest == L'.' && !hasPoint)); ++rest) {
        if (*rest == L'.') {
            hasPoint = true;
            continue;
        }
        whole = whole * 10 + (*rest - L'0');
        decimals += hasPoint ? 1 : 0;
        ++digits;
    }
    if (digits == 0 || digits > mostDigits || *rest == L'e' || *rest == L'E') {
        return false;
    }
    value = static_cast<double>(whole) / powers[decimals];
    text = rest;
    return true;
}

/// The same for a number of any length and with an exponent; false when there is none.
bool readNumber(const wchar_t*& text, double& value) {
    const wchar_t* rest = text;
    std::string number;
    int digits = readDigits(rest, number);
    if (*rest == L'.' && (digits > 0 || isDigit(rest[1]))) {
        number.push_back('.');
        ++rest;
        digits += readDigits(rest, number);
    }
    if (digits == 0) {
        return false;
    }
    readExponent(rest, number);
    value = toDouble(number);
    text = rest;
    return true;
}

} // namespace

int _wtoi(const wchar_t* text) {
    if (text == nullptr) {
        return 0;
    }
    text = skipSpace(text);
    const bool negative = readSign(text);
    const std::int64_t limit = negative ? -static_cast<std::int64_t>(INT_MIN) : INT_MAX;
    std::int64_t value = 0;
    for (; isDigit(*text) && value < limit; ++text) {
        value = std::min(value * 10 + (*text - L'0'), limit);
    }
    return static_cast<int>(negative ? -value : value);
}

double platform_crt::wcstod(const wchar_t* text, wchar_t** end) {
    const wchar_t* rest = skipSpace(text);
    const bool negative = readSign(rest);
    double value = 0.0;
    if (!readShortNumber(rest, value) && !readNumber(rest, value)) {
        rest = text;
    }
    if (end != nullptr) {
        *end = const_cast<wchar_t*>(rest);
    }
    return rest != text && negative ? -value : value;
}
