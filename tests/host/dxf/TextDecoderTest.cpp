#include "dxf/TextDecoder.h"

#include <gtest/gtest.h>

#include <string>

using host_dxf::converterNameFor;
using host_dxf::TextDecoder;

namespace {

std::wstring decoded(std::string_view codePage, std::string_view bytes) {
    return TextDecoder(codePage, false).decode(bytes);
}

// One character of each page, by the tables that the pages' owners published.
TEST(TextDecoder, KnowsTheCodePagesOfOlderDrawings) {
    const struct {
        const char* page;
        const char* bytes;
        const wchar_t* text;
    } cases[] = {
        {"ANSI_874", "\xA1\xE2", L"\x0E01\x0E42"},
        {"ANSI_932", "\x93\xFA\x96\x7B\xB1", L"\x65E5\x672C\xFF71"},
        {"ANSI_936", "\xCE\xDB\xCB\xAE", L"\x6C61\x6C34"},
        {"ansi_936", "\x80", L"\x20AC"},
        {"gb2312", "\xB9\xDC\xB5\xC0", L"\x7BA1\x9053"},
        {"ANSI_949", "\xC7\xD1\xB1\xDB", L"\xD55C\xAE00"},
        {"ANSI_950", "\xA6\xC3\xA4\xF4", L"\x6C61\x6C34"},
        {"BIG5", "\xA4\xA4", L"\x4E2D"},
        {"ANSI_1250", "\xE8", L"\x010D"},
        {"ANSI_1251", "\xCF", L"\x041F"},
        {"ANSI_1252", "\xE9\x80", L"\x00E9\x20AC"},
        {"ANSI_1253", "\xE1", L"\x03B1"},
        {"ANSI_1254", "\xFD", L"\x0131"},
        {"ANSI_1255", "\xE0", L"\x05D0"},
        {"ANSI_1256", "\xC7", L"\x0627"},
        {"ANSI_1257", "\xE0", L"\x0105"},
        {"ANSI_1258", "\xE2\xF0", L"\x00E2\x0111"},
        {"dos437", "\x81", L"\x00FC"},
        {"dos850", "\x9B", L"\x00F8"},
        {"dos866", "\x8F", L"\x041F"},
        {"dos932", "\x88\x9F", L"\x4E9C"},
        {"iso8859-2", "\xE8", L"\x010D"},
        {"mac-roman", "\x8A", L"\x00E4"},
        {"johab", "\xD0\x65", L"\xD55C"},
        {"", "\xFC", L"\x00FC"},
        {"no such page", "\xFC", L"\x00FC"},
    };
    for (const auto& known : cases) {
        EXPECT_EQ(decoded(known.page, known.bytes), known.text) << known.page;
    }
}

TEST(TextDecoder, AsciiStaysAsciiInEveryPage) {
    const std::string ascii = "AZaz09 \\~{}|[]_";
    for (const char* page :
         {"ANSI_932", "ANSI_936", "ANSI_949", "ANSI_950", "johab", "ANSI_1252"}) {
        EXPECT_EQ(decoded(page, ascii + "\xFF").substr(0, ascii.size()),
                  std::wstring(ascii.begin(), ascii.end()))
            << page;
    }
}

TEST(TextDecoder, SecondByteOfACharacterIsNoBackslash) {
    // 0x8F5C is one character of the Japanese page; its second byte is a backslash's code.
    EXPECT_EQ(decoded("ANSI_932", "\x8F\x5CU+6C61"), L"\x5341U+6C61");
    // 0x815C in the Chinese page alike; a caret's code 0x5E ends 0x815E.
    EXPECT_EQ(decoded("ANSI_936", "\x81\x5CU+6C61"), L"\x4E57U+6C61");
    EXPECT_EQ(decoded("ANSI_936", "\x81\x5EJ"), L"\x4E5BJ");
}

TEST(TextDecoder, DecodesUtf8WhenTheVersionSaysSo) {
    const TextDecoder decoder("ANSI_936", true);
    EXPECT_TRUE(decoder.isUtf8());
    EXPECT_EQ(decoder.decode("\xE6\xB1\xA1\xE6\xB0\xB4"), L"\x6C61\x6C34");
    EXPECT_EQ(decoder.decode("\xF0\x9F\x9A\xB0"), L"\x1F6B0");
}

TEST(TextDecoder, BadBytesBecomeTheReplacementCharacter) {
    EXPECT_EQ(decoded("ANSI_1252", "a\x81"
                                   "b"),
              L"a\xFFFD"
              L"b");
    EXPECT_EQ(decoded("ANSI_936", "a\xCE"), L"a\xFFFD") << "half a character at the end";
    EXPECT_EQ(decoded("ANSI_936", "\xCE\"x"), L"\xFFFD\"x") << "the ASCII byte behind is kept";
    EXPECT_EQ(TextDecoder("", true).decode("a\xFF"
                                           "b"),
              L"a\xFFFD"
              L"b");
    EXPECT_EQ(TextDecoder("", true).decode(std::string_view("a\0b", 3)), L"a\xFFFD"
                                                                         L"b");
}

TEST(TextDecoder, UnicodeEscapesStandInEveryPage) {
    for (const char* page : {"ANSI_936", "ANSI_1252", "dos850"}) {
        EXPECT_EQ(decoded(page, "\\U+6c61\\U+6C34"), L"\x6C61\x6C34");
    }
    const TextDecoder utf8("", true);
    EXPECT_EQ(utf8.decode("a\\U+00E9z"), L"a\x00E9z");
    EXPECT_EQ(utf8.decode("\\U+D83D\\U+DEB0"), L"\x1F6B0") << "a pair stands for one character";
    EXPECT_EQ(utf8.decode("\\U+D83Dx"), L"\xFFFDx");
    EXPECT_EQ(utf8.decode("\\U+DEB0"), L"\xFFFD");
    EXPECT_EQ(utf8.decode("\\U+0000"), L"\xFFFD");
    EXPECT_EQ(utf8.decode("\\U+12G4 \\U+123"), L"\\U+12G4 \\U+123") << "no escapes";
    EXPECT_EQ(utf8.decode("\\"), L"\\");
}

TEST(TextDecoder, MultibyteEscapesNameTheirPage) {
    const TextDecoder decoder("ANSI_1252", false);
    EXPECT_EQ(decoder.decode("\\M+193FA"), L"\x65E5");
    EXPECT_EQ(decoder.decode("\\M+2A4A4"), L"\x4E2D");
    EXPECT_EQ(decoder.decode("\\M+3C7D1"), L"\xD55C");
    EXPECT_EQ(decoder.decode("\\M+4D065"), L"\xD55C");
    EXPECT_EQ(decoder.decode("\\M+5CEDB\\M+5CBAE"), L"\x6C61\x6C34");
    EXPECT_EQ(decoder.decode("\\M+100B1"), L"\xFF71") << "a one-byte character";
    EXPECT_EQ(decoder.decode("\\M+6CEDB \\M+5CE"), L"\\M+6CEDB \\M+5CE") << "no escapes";
}

TEST(TextDecoder, CaretsStandForControlCharacters) {
    const TextDecoder decoder("", true);
    EXPECT_EQ(decoder.decode("a^Jb^Ic"), L"a\nb\tc");
    EXPECT_EQ(decoder.decode("2^ 3"), L"2^3");
    EXPECT_EQ(decoder.decode("m^2 ^"), L"m^2 ^") << "no escapes";
}

TEST(TextDecoder, NamesOfCodePages) {
    EXPECT_EQ(converterNameFor("ANSI_936"), "CP936");
    EXPECT_EQ(converterNameFor("ansi_1252"), "CP1252");
    EXPECT_EQ(converterNameFor("DOS850"), "CP850");
    EXPECT_EQ(converterNameFor("utf-8"), "UTF-8");
    EXPECT_EQ(converterNameFor("ANSI_9999"), "CP1252");
    EXPECT_EQ(converterNameFor("ANSI_99999999999"), "CP1252");
}

} // namespace
