#include "town/Town.h"

#include <array>
#include <charconv>

namespace benchmark_town {

namespace {

std::string handleText(std::uint64_t handle) {
    std::array<char, 16> digits{};
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), handle, 16).ptr;
    std::string text(digits.data(), written);
    for (char& digit : text) {
        if (digit >= 'a') {
            digit = static_cast<char>(digit - 'a' + 'A');
        }
    }
    return text;
}

} // namespace

const char* systemName(System system) {
    switch (system) {
    case System::kFoul:
        return "污水";
    case System::kStorm:
        return "雨水";
    default:
        return "给水";
    }
}

std::string wellHandle(std::size_t well) {
    return handleText(kFirstHandle + well);
}

std::string pipeHandle(const Town& town, std::size_t pipe) {
    return handleText(kFirstHandle + town.wells.size() + pipe);
}

} // namespace benchmark_town
