#include "platform/Encoding.h"
#include "platform/WideCharacters.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using host_text::fromUtf8;
using host_text::toUtf8;

TEST(Encoding, KnownBytesOfEveryLength) {
    EXPECT_EQ(toUtf8(L"A"), "\x41");
    EXPECT_EQ(toUtf8(L"\u00E9"), "\xC3\xA9");
    EXPECT_EQ(toUtf8(L"\u6C61\u6C34"), "\xE6\xB1\xA1\xE6\xB0\xB4");
    EXPECT_EQ(toUtf8(L"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fromUtf8("\xE6\xB1\xA1\xE6\xB0\xB4"), L"\u6C61\u6C34");
    EXPECT_EQ(fromUtf8("\xF0\x9F\x98\x80"), L"\U0001F600");
}

TEST(Encoding, EveryCodePointGoesThereAndBack) {
    for (unsigned value = 0; value <= 0x10FFFF; ++value) {
        if (value >= 0xD800 && value <= 0xDFFF) {
            continue;
        }
        const std::wstring text(1, static_cast<wchar_t>(value));
        ASSERT_EQ(fromUtf8(toUtf8(text)), text) << value;
    }
}

TEST(Encoding, IllFormedPiecesBecomeReplacementCharacters) {
    EXPECT_EQ(fromUtf8("a\x80z"), L"a\uFFFDz");
    EXPECT_EQ(fromUtf8("a\xE6\xB1z"), L"a\uFFFDz") << "cut short: one piece";
    EXPECT_EQ(fromUtf8("\xE6\xB1"), L"\uFFFD") << "cut short at the end";
    EXPECT_EQ(fromUtf8("\xC0\xAF"), L"\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(fromUtf8("\xE0\x80\xAF"), L"\uFFFD\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD") << "surrogate";
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD") << "too great";
    EXPECT_EQ(fromUtf8("\xFFz"), L"\uFFFDz");
}

TEST(Encoding, WideTextOutsideUnicode) {
    EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(0x110000))), "\xEF\xBF\xBD");
    const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(toUtf8(pair), "\xF0\x9F\x98\x80");
}

TEST(Encoding, NullAndMarkAreKept) {
    EXPECT_EQ(fromUtf8(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(fromUtf8("\xEF\xBB\xBFx"), L"\uFEFFx");
    EXPECT_EQ(toUtf8(L""), "");
}

TEST(WideCharacters, SpaceAndCase) {
    EXPECT_TRUE(host_text::isSpace(L' '));
    EXPECT_TRUE(host_text::isSpace(L'\r'));
    EXPECT_TRUE(host_text::isSpace(L'\u3000'));
    EXPECT_FALSE(host_text::isSpace(L'\0'));
    EXPECT_FALSE(host_text::isSpace(L'x'));
    EXPECT_FALSE(host_text::isSpace(L'\u200B')) << "without width, not white space";
    EXPECT_EQ(host_text::upperCase(L'q'), L'Q');
    EXPECT_EQ(host_text::lowerCase(L'\u00C9'), L'\u00E9');
    EXPECT_EQ(host_text::upperCase(L'\u0436'), L'\u0416');
    EXPECT_EQ(host_text::upperCase(L'\u6C34'), L'\u6C34');
    EXPECT_EQ(host_text::upperCase(L'['), L'[');
}

TEST(WideCharacters, ComparesWithoutCase) {
    EXPECT_EQ(host_text::compareNoCase(L"Layer-\u00C9", L"lAYER-\u00E9"), 0);
    EXPECT_LT(host_text::compareNoCase(L"a", L"B"), 0);
    EXPECT_GT(host_text::compareNoCase(L"ab", L"A"), 0);
    EXPECT_LT(host_text::compareNoCase(L"", L"A"), 0);
}

} // namespace
