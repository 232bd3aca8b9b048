#include "exchange/Notes.h"

#include "OneLine.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

void printNotes(const std::vector<std::string>& notes) {
    constexpr std::size_t most = 20;
    for (std::size_t i = 0; i < std::min(most, notes.size()); ++i) {
        complain("note: " + notes[i]);
    }
    if (notes.size() > most) {
        complain(fmt::format("note: {} more like these", notes.size() - most));
    }
}

} // namespace pipenet
