#include "dxf/TextEncoder.h"

#include <gtest/gtest.h>

#include <cwchar>

using host_dxf::TextDecoder;
using host_dxf::TextEncoder;

namespace {

std::string encoded(const char* codePage, std::wstring_view text) {
    const TextDecoder decoder(codePage, false);
    return TextEncoder(decoder).encode(text);
}

TEST(TextEncoder, BytesOfKnownPages) {
    // The character of water in the pages of the four languages that have it.
    EXPECT_EQ(encoded("ANSI_936", L"\x6C34"), "\xCB\xAE");
    EXPECT_EQ(encoded("ANSI_950", L"\x6C34"), "\xA4\xF4");
    EXPECT_EQ(encoded("ANSI_932", L"\x6C34"), "\x90\x85");
    EXPECT_EQ(encoded("ANSI_949", L"\x6C34"), "\xE2\xA9");
    EXPECT_EQ(encoded("ANSI_1252", L"\x00E4\x20AC"), "\xE4\x80");
    EXPECT_EQ(encoded("ANSI_1251", L"\x0416"), "\xC6");
    EXPECT_EQ(encoded("", L"plain"), "plain");
}

TEST(TextEncoder, Utf8OfLaterVersions) {
    const TextDecoder decoder("ANSI_936", true);
    EXPECT_EQ(TextEncoder(decoder).encode(L"\x6C34\x1F600"), "\xE6\xB0\xB4\xF0\x9F\x98\x80");
}

TEST(TextEncoder, WhatThePageLacksIsEscaped) {
    EXPECT_EQ(encoded("ANSI_1252", L"a\x6C34"), "a\\U+6C34");
    EXPECT_EQ(encoded("ANSI_936", L"\x1F600"), "\\U+D83D\\U+DE00");
}

TEST(TextEncoder, ControlCharactersAndCarets) {
    EXPECT_EQ(encoded("ANSI_1252", L"a\nb\r\tc\x1F"), "a^Jb^M^Ic^_");
    EXPECT_EQ(encoded("ANSI_1252", L"x^2"), "x^ 2");
}

TEST(TextEncoder, BackslashesStayUnlessTheyWouldBeReadAsAnEscape) {
    EXPECT_EQ(encoded("ANSI_1252", L"\\P\\U+12 C:\\M+"), "\\P\\U+12 C:\\M+");
    EXPECT_EQ(encoded("ANSI_1252", L"\\U+00e4"), "\\U+005CU+00e4");
    EXPECT_EQ(encoded("ANSI_1252", L"\\M+1abcd"), "\\U+005CM+1abcd");
}

TEST(TextEncoder, EveryCharacterIsReadBackInEveryEncoding) {
    for (const char* const page :
         {"ANSI_874",  "ANSI_932",  "ANSI_936",  "ANSI_949",  "ANSI_950",  "ANSI_1250", "ANSI_1251",
          "ANSI_1252", "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_1258",
          "ANSI_1361", "DOS437",    "DOS850",    "DOS932",    "DOS866",    "GB2312",    "BIG5",
          "KSC5601",   "JOHAB",     "ISO8859-1", "ISO8859-5", "MAC-ROMAN", "UTF-8"}) {
        const TextDecoder decoder(page, false);
        const TextEncoder encoder(decoder);
        std::size_t wrong = 0;
        for (wchar_t character = 1; character < 0x20000; ++character) {
            const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
            const std::wstring text{L'<', character, L'>'};
            wrong += !surrogate && decoder.decode(encoder.encode(text)) != text ? 1 : 0;
        }
        EXPECT_EQ(wrong, 0U) << page;
    }
}

} // namespace
