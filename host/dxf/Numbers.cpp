#include "dxf/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace host_dxf {

namespace {

std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    return text;
}

/// Tells an underflow from an overflow, which std::from_chars reports alike.
bool isTooSmall(std::string_view text) {
    const std::size_t exponent = text.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return text.substr(exponent + 1).starts_with('-');
    }
    const std::size_t digit = text.find_first_not_of("+-0");
    return digit != std::string_view::npos && text[digit] == '.';
}

} // namespace

std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

bool parseReal(std::string_view text, double& value) {
    const std::string_view number = withoutPlus(trimBlanks(text));
    double parsed = 0.0;
    const auto [end, status] = std::from_chars(number.begin(), number.end(), parsed);
    if (end != number.end() || number.empty()) {
        return false;
    }
    if (status == std::errc::result_out_of_range) {
        value = 0.0;
        return isTooSmall(number);
    }
    if (status != std::errc() || !std::isfinite(parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

bool parseInteger(std::string_view text, std::int64_t& value) {
    const std::string_view number = withoutPlus(trimBlanks(text));
    const auto [end, status] = std::from_chars(number.begin(), number.end(), value);
    if (status != std::errc()) {
        return false;
    }
    if (end == number.end()) {
        return true;
    }
    const std::string_view rest(end, static_cast<std::size_t>(number.end() - end));
    return rest[0] == '.' && rest.find_first_not_of('0', 1) == std::string_view::npos;
}

bool parseHandle(std::string_view text, std::uint64_t& value) {
    const std::string_view number = trimBlanks(text);
    const auto [end, status] = std::from_chars(number.begin(), number.end(), value, 16);
    return status == std::errc() && end == number.end();
}

bool isHexBytes(std::string_view text) {
    const std::string_view digits = trimBlanks(text);
    return digits.size() % 2 == 0 && std::all_of(digits.begin(), digits.end(), [](char digit) {
               return hexDigit(static_cast<wchar_t>(static_cast<unsigned char>(digit))) >= 0;
           });
}

std::string realText(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    std::string text(digits, end);
    if (text.find('.') == std::string::npos) {
        const std::size_t exponent = text.find('e');
        text.insert(exponent == std::string::npos ? text.size() : exponent, ".0");
    }
    return text;
}

std::string handleText(std::uint64_t handle) {
    constexpr int hexadecimal = 16;
    char digits[17];
    const auto end = std::to_chars(digits, digits + sizeof digits, handle, hexadecimal).ptr;
    std::string text(digits, end);
    std::transform(text.begin(), text.end(), text.begin(), [](char digit) {
        return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    });
    return text;
}

int hexDigit(wchar_t digit) {
    if (digit >= L'0' && digit <= L'9') {
        return digit - L'0';
    }
    if (digit >= L'A' && digit <= L'F') {
        return digit - L'A' + 10;
    }
    return digit >= L'a' && digit <= L'f' ? digit - L'a' + 10 : -1;
}

} // namespace host_dxf
