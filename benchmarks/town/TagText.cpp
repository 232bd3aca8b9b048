#include "town/TagText.h"

#include <array>
#include <charconv>

namespace benchmark_town {

namespace {

constexpr std::size_t kCodeWidth = 3;
constexpr std::size_t kDigits = 32;

template<class Number>
std::string_view written(std::array<char, kDigits>& digits, Number value) {
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

} // namespace

void TagText::addCode(int code) {
    std::array<char, kDigits> digits{};
    const std::string_view number = written(digits, code);
    text_.append(number.size() < kCodeWidth ? kCodeWidth - number.size() : 0, ' ');
    text_.append(number).append("\n");
}

void TagText::add(int code, std::string_view value) {
    addCode(code);
    text_.append(value).append("\n");
}

void TagText::add(int code, int value) {
    std::array<char, kDigits> digits{};
    add(code, written(digits, value));
}

void TagText::add(int code, double value) {
    std::array<char, kDigits> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::general)
                         .ptr;
    const std::string_view number(digits.data(), static_cast<std::size_t>(end - digits.data()));
    addCode(code);
    text_.append(number);
    if (number.find_first_of(".e") == std::string_view::npos) {
        text_.append(".0");
    }
    text_.append("\n");
}

void TagText::point(int code, const Place& place) {
    add(code, place.x);
    add(code + 10, place.y);
    add(code + 20, 0.0);
}

} // namespace benchmark_town
