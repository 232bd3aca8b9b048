#include "ByteReader.h"

#include <bit>
#include <limits>

namespace fuzz {

std::int32_t ByteReader::number() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        value = value << 8 | byte();
    }
    return std::bit_cast<std::int32_t>(value);
}

double ByteReader::anyDouble() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) {
        bits = bits << 8 | byte();
    }
    return std::bit_cast<double>(bits);
}

double ByteReader::coordinate() {
    const int kind = byte();
    if (kind < 240) {
        return kind / 8.0 + (oneIn(8) ? byte() / 256.0 : 0.0);
    }
    constexpr double odd[] = {
        0.0,     -0.0,    1e-11, 1e-10,     1e7,
        3845217, -1e19,   1e300, 5e-324,    std::numeric_limits<double>::max(),
        1.0,     -0.0625, 1e-7,  1e7 + 0.1, 4.0};
    return kind == 255 ? anyDouble() : odd[kind - 240];
}

AcGePoint3d ByteReader::point() {
    const double x = coordinate();
    const double y = coordinate();
    return {x, y, oneIn(16) ? coordinate() : 0.0};
}

std::wstring ByteReader::text(int longest) {
    constexpr wchar_t letters[] = L"0123456789.-+eE SEWYJ\"\\U+^{};,\t\n管道系统井径池体给水污雨";
    constexpr int count = sizeof letters / sizeof letters[0] - 1;
    std::wstring text;
    for (int length = below(longest + 1); length > 0; --length) {
        const int choice = byte();
        text +=
            choice < count ? letters[choice] : static_cast<wchar_t>(1 + (choice * 131 + byte()));
    }
    return text;
}

} // namespace fuzz
