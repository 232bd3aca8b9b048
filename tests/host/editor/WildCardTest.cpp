#include "editor/WildCard.h"

#include <gtest/gtest.h>

#include <string>

namespace {

bool matches(const wchar_t* pattern, const wchar_t* text) {
    return host_ed::WildCard(pattern).matches(text);
}

TEST(WildCardTest, PlainTextIsComparedWithoutCase) {
    EXPECT_TRUE(matches(L"Line", L"LINE"));
    EXPECT_FALSE(matches(L"LINE", L"LINES"));
    EXPECT_FALSE(matches(L"LINES", L"LINE"));
    EXPECT_TRUE(matches(L"管道系统", L"管道系统"));
    EXPECT_TRUE(matches(L"", L""));
    EXPECT_FALSE(matches(L"", L"A"));
}

TEST(WildCardTest, RunsAndSingleCharacters) {
    EXPECT_TRUE(matches(L"*", L""));
    EXPECT_TRUE(matches(L"*LINE", L"LWPOLYLINE"));
    EXPECT_TRUE(matches(L"*a*b*c", L"xaybzbwc"));
    EXPECT_FALSE(matches(L"*a*b*c", L"xaybzbwcd"));
    EXPECT_TRUE(matches(L"管?系统", L"管井系统"));
    EXPECT_FALSE(matches(L"管?系统", L"管系统"));
    EXPECT_TRUE(matches(L"W##", L"W04"));
    EXPECT_FALSE(matches(L"W##", L"W0A"));
    EXPECT_TRUE(matches(L"@@1", L"ab1"));
    EXPECT_TRUE(matches(L"@", L"管"));
    EXPECT_FALSE(matches(L"@", L"1"));
    EXPECT_TRUE(matches(L"A.B", L"A-B"));
    EXPECT_FALSE(matches(L"A.B", L"A1B"));
}

TEST(WildCardTest, Sets) {
    EXPECT_TRUE(matches(L"APP[12]", L"APP2"));
    EXPECT_FALSE(matches(L"APP[12]", L"APP3"));
    EXPECT_TRUE(matches(L"APP[~12]", L"APP3"));
    EXPECT_TRUE(matches(L"[a-c]X", L"Bx"));
    EXPECT_FALSE(matches(L"[a-c]X", L"dx"));
    EXPECT_TRUE(matches(L"[a-]", L"-"));
    EXPECT_TRUE(matches(L"[`]]", L"]"));
    EXPECT_TRUE(matches(L"[ab", L"[AB"));
    EXPECT_TRUE(matches(L"[]", L"[]"));
}

TEST(WildCardTest, NegationListsAndEscapes) {
    EXPECT_FALSE(matches(L"~LINE", L"line"));
    EXPECT_TRUE(matches(L"~LINE", L"ARC"));
    EXPECT_TRUE(matches(L"LINE,ARC", L"arc"));
    EXPECT_FALSE(matches(L"LINE,ARC", L"CIRCLE"));
    EXPECT_TRUE(matches(L"LINE,~*E", L"ARC"));
    EXPECT_TRUE(matches(L"`*Model_Space", L"*MODEL_SPACE"));
    EXPECT_FALSE(matches(L"`*Model_Space", L"XMODEL_SPACE"));
    EXPECT_TRUE(matches(L"a`,b", L"A,B"));
    EXPECT_TRUE(matches(L"A,", L""));
    EXPECT_TRUE(matches(L"a`", L"a`"));
}

TEST(WildCardTest, ManyRunsStayFast) {
    std::wstring pattern;
    for (int i = 0; i < 40; ++i) {
        pattern += L"a*";
    }
    pattern += L"b";
    EXPECT_FALSE(host_ed::WildCard(pattern).matches(std::wstring(20'000, L'a')));
}

} // namespace
