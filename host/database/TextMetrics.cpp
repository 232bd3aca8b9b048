#include "database/TextMetrics.h"

#include "platform/Encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace host_db {
namespace {

struct CharacterRange {
    std::uint32_t first;
    std::uint32_t last;
};

/// Blocks whose characters fill a square, in ascending order.
constexpr std::array kWide = {CharacterRange{0x1100, 0x115F},   CharacterRange{0x2460, 0x24FF},
                              CharacterRange{0x2E80, 0x303E},   CharacterRange{0x3041, 0x33FF},
                              CharacterRange{0x3400, 0x4DBF},   CharacterRange{0x4E00, 0x9FFF},
                              CharacterRange{0xA000, 0xA4CF},   CharacterRange{0xA960, 0xA97F},
                              CharacterRange{0xAC00, 0xD7A3},   CharacterRange{0xF900, 0xFAFF},
                              CharacterRange{0xFE10, 0xFE19},   CharacterRange{0xFE30, 0xFE6F},
                              CharacterRange{0xFF01, 0xFF60},   CharacterRange{0xFFE0, 0xFFE6},
                              CharacterRange{0x1F300, 0x1F64F}, CharacterRange{0x1F900, 0x1F9FF},
                              CharacterRange{0x20000, 0x3FFFD}};

/// Marks drawn over the character before, and characters that show nothing.
constexpr std::array kWithoutWidth = {
    CharacterRange{0x0000, 0x001F}, CharacterRange{0x007F, 0x009F}, CharacterRange{0x0300, 0x036F},
    CharacterRange{0x1AB0, 0x1AFF}, CharacterRange{0x1DC0, 0x1DFF}, CharacterRange{0x200B, 0x200F},
    CharacterRange{0x20D0, 0x20FF}, CharacterRange{0xFE00, 0xFE0F}, CharacterRange{0xFE20, 0xFE2F},
    CharacterRange{0xFEFF, 0xFEFF}};

template<std::size_t N>
bool isIn(const std::array<CharacterRange, N>& ranges, std::uint32_t character) {
    const auto range =
        std::lower_bound(ranges.begin(), ranges.end(), character,
                         [](const CharacterRange& it, std::uint32_t c) { return it.last < c; });
    return range != ranges.end() && range->first <= character;
}

/// ASCII characters of one advance, in hundredths of an em.
struct AdvanceGroup {
    std::string_view characters;
    int advance;
};

constexpr std::array kAscii = {AdvanceGroup{"ijl!'.,:;|`", 25},
                               AdvanceGroup{" I()[]{}ft-/\\\"", 35},
                               AdvanceGroup{"rs*^", 45},
                               AdvanceGroup{"acekvxyzJ?_", 55},
                               AdvanceGroup{"bdghnopqu0123456789L$#+<=>~F", 60},
                               AdvanceGroup{"ABEKPSTVXYZ&", 70},
                               AdvanceGroup{"CDGHNORUw", 75},
                               AdvanceGroup{"OQ%Mm@", 90},
                               AdvanceGroup{"W", 95}};

constexpr int kOtherAdvance = 60;

/// Advances of the characters below 128 in hundredths of an em, worked out once from the groups.
constexpr std::array<int, 128> makeAsciiAdvances() {
    std::array<int, 128> advances{};
    for (int& advance : advances) {
        advance = kOtherAdvance;
    }
    for (const AdvanceGroup& group : kAscii) {
        for (const char character : group.characters) {
            advances[static_cast<unsigned char>(character)] = group.advance;
        }
    }
    return advances;
}

constexpr std::array<int, 128> kAsciiAdvances = makeAsciiAdvances();

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Reads one of the drawing's own codes at `text`, which starts with two percent signs. Gives its
/// advance and moves behind it; anything else shows its first percent sign.
double codeAdvance(const wchar_t*& text, const TextFonts& fonts) {
    const wchar_t code = text[2];
    if (isDigit(code) && isDigit(text[3]) && isDigit(text[4])) {
        const int number = (code - L'0') * 100 + (text[3] - L'0') * 10 + (text[4] - L'0');
        text += 5;
        return fonts.advance(static_cast<wchar_t>(number));
    }
    constexpr std::wstring_view kSwitches = L"uUoOkK";
    constexpr std::wstring_view kCodes = L"cCdDpP%";
    constexpr std::wstring_view kShown = L"ØØ°°±±%";
    const bool isSwitch = code != L'\0' && kSwitches.find(code) != std::wstring_view::npos;
    const std::size_t symbol = code == L'\0' ? std::wstring_view::npos : kCodes.find(code);
    const bool isSymbol = symbol != std::wstring_view::npos;
    text += isSwitch || isSymbol ? 3 : 1;
    if (isSwitch) {
        return 0.0;
    }
    return fonts.advance(isSymbol ? kShown[symbol] : L'%');
}

} // namespace

bool isWideCharacter(wchar_t character) {
    return isIn(kWide, host_text::codeOf(character));
}

double textAdvance(wchar_t character) {
    const std::uint32_t number = host_text::codeOf(character);
    if (isIn(kWithoutWidth, number)) {
        return 0.0;
    }
    if (number < kAsciiAdvances.size()) {
        return kAsciiAdvances[number] / 100.0;
    }
    return isWideCharacter(character) ? 1.0 : kOtherAdvance / 100.0;
}

double textWidth(const wchar_t* text, const TextFonts& fonts) {
    double width = 0.0;
    while (text != nullptr && *text != L'\0') {
        if (text[0] == L'%' && text[1] == L'%') {
            width += codeAdvance(text, fonts);
        } else {
            width += fonts.advance(*text++);
        }
    }
    return width;
}

} // namespace host_db
