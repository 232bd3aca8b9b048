#include "TextWidth.h"

#include "EmbeddedHost.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pipenet {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array kWide{
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF},  Range{0x3400, 0x4DBF},
    Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},   Range{0xA960, 0xA97F},  Range{0xAC00, 0xD7A3},
    Range{0xF900, 0xFAFF},   Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},  Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD}};

constexpr std::array kNone{Range{0x0300, 0x036F}, Range{0x200B, 0x200F}, Range{0x20D0, 0x20FF},
                           Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}};

template<class Ranges>
bool isIn(const Ranges& ranges, char32_t character) {
    return std::any_of(ranges.begin(), ranges.end(), [character](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

} // namespace

int characterColumns(char32_t character) {
    if (character < 0x20 || isIn(kNone, character)) {
        return 0;
    }
    return isIn(kWide, character) ? 2 : 1;
}

int textColumns(std::string_view text) {
    int columns = 0;
    for (const wchar_t character : host_text::fromUtf8(text)) {
        columns += characterColumns(static_cast<char32_t>(character));
    }
    return columns;
}

} // namespace pipenet
