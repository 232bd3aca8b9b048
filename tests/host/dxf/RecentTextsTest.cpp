#include "dxf/RecentTexts.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using host_dxf::RecentTexts;
using host_dxf::TextDecoder;

namespace {

/// Texts in UTF-8.
class RecentTextsTest : public ::testing::Test {
protected:
    std::wstring textOf(std::string_view bytes) {
        return static_cast<const wchar_t*>(read(texts, bytes));
    }
    static CString read(RecentTexts& from, std::string_view bytes) {
        CString text = L"what was there before";
        from.read(bytes, text);
        return text;
    }

    TextDecoder decoder{"", true};
    RecentTexts texts{decoder};
};

TEST_F(RecentTextsTest, DecodesAsTheDrawingDoes) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(textOf("PVC"), L"PVC");
        EXPECT_EQ(textOf("\xE6\xB1\xA1\xE6\xB0\xB4"), L"\u6C61\u6C34");
        EXPECT_EQ(textOf("\\U+6C34"), L"\u6C34");
        EXPECT_EQ(textOf(""), L"");
        EXPECT_EQ(textOf(" "), L" ");
    }
}

TEST_F(RecentTextsTest, TheSameBytesGiveOneSharedText) {
    const std::string here = "HDPE";
    const std::string there = "an HDPE pipe";
    const CString first = read(texts, here);
    const CString second = read(texts, std::string_view(there).substr(3, 4));
    EXPECT_EQ(static_cast<const wchar_t*>(first), static_cast<const wchar_t*>(second));
    EXPECT_STREQ(static_cast<const wchar_t*>(second), L"HDPE");
}

TEST_F(RecentTextsTest, WhoeverChangesATextChangesItsOwnAlone) {
    const std::string bytes = "DN300";
    CString mine = read(texts, bytes);
    mine += L" changed";
    EXPECT_EQ(textOf(bytes), L"DN300");
    EXPECT_STREQ(static_cast<const wchar_t*>(mine), L"DN300 changed");
}

TEST_F(RecentTextsTest, LongTextsAreDecodedLikeShortOnes) {
    for (const std::size_t length : {31U, 32U, 33U, 1000U}) {
        const std::string bytes(length, 'x');
        EXPECT_EQ(textOf(bytes), std::wstring(length, L'x'));
        EXPECT_EQ(textOf(bytes), std::wstring(length, L'x'));
    }
}

// Many more than are remembered, so that each place has several after one another.
TEST_F(RecentTextsTest, TextsThatShareAPlaceAreToldApart) {
    std::vector<std::string> bytes;
    for (int i = 0; i < 5000; ++i) {
        bytes.push_back(std::to_string(i));
    }
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const std::size_t other = (i * 4099) % bytes.size();
            EXPECT_EQ(textOf(bytes[other]), std::to_wstring(other));
            EXPECT_EQ(textOf(bytes[i]), std::to_wstring(i));
        }
    }
}

TEST_F(RecentTextsTest, WhereBytesLayOtherBytesMayStandLater) {
    std::string bytes = "DN300";
    EXPECT_EQ(textOf(bytes), L"DN300");
    bytes = "DN400";
    EXPECT_EQ(textOf("DN300"), L"DN300");
    EXPECT_EQ(textOf(bytes), L"DN400");
    EXPECT_EQ(textOf("DN300"), L"DN300");
}

TEST_F(RecentTextsTest, ATextOutlivesWhatRemembersIt) {
    const std::string bytes = "PE";
    CString kept;
    {
        RecentTexts others(decoder);
        kept = read(others, bytes);
    }
    EXPECT_STREQ(static_cast<const wchar_t*>(kept), L"PE");
}

} // namespace
