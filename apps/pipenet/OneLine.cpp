#include "OneLine.h"

#include <algorithm>
#include <cstdio>

namespace pipenet {

std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char letter) { return static_cast<unsigned char>(letter) < ' ' || letter == 127; }, ' ');
    return text;
}

void say(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

void complain(const std::string& text) {
    say("pipenet: " + oneLine(text) + "\n");
}

} // namespace pipenet
