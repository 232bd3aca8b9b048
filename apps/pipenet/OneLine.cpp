#include "OneLine.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace pipenet {

std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char letter) { return static_cast<unsigned char>(letter) < ' ' || letter == 127; }, ' ');
    return text;
}

void complain(const std::string& text) {
    fmt::print(stderr, "pipenet: {}\n", oneLine(text));
}

} // namespace pipenet
