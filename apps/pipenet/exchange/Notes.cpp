#include "exchange/Notes.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace pipenet {

void printNotes(const std::vector<std::string>& notes) {
    constexpr std::size_t most = 20;
    for (std::size_t i = 0; i < std::min(most, notes.size()); ++i) {
        fmt::print(stderr, "pipenet: note: {}\n", notes[i]);
    }
    if (notes.size() > most) {
        fmt::print(stderr, "pipenet: note: {} more like these\n", notes.size() - most);
    }
}

} // namespace pipenet
