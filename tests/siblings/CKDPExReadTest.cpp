#include "CKDPEx.h"
#include "TemporaryFolder.h"

#include <climits>
#include <gtest/gtest.h>
#include <sys/stat.h>

using sibling_tests::TemporaryFolder;

namespace {

/// One settings file with the bytes given, opened.
class Opened {
public:
    explicit Opened(const std::string& bytes) {
        folder_.write("a.Kdp", bytes);
        status = file.Open(folder_.wide("a.Kdp"));
    }

    /// The text of a key; `<none>` when there is no such key.
    std::wstring text(const wchar_t* key) const {
        CString value(L"<none>");
        const int found = file.GetSubValue(key, value);
        return found == 1 ? std::wstring(value.view()) : L"<none>";
    }

    CKDPEx file;
    int status = -1;

private:
    TemporaryFolder folder_;
};

int statusOf(const std::string& bytes) {
    return Opened(bytes).status;
}

constexpr const char* pipeSystems = "# pipe systems\n"
                                    "1 = 污水\n"
                                    "1\\GroupType = 重力流\n"
                                    "1\\GroupFlag = W\n"
                                    "2 = 给水\n"
                                    "2\\GroupType = 压力流\n"
                                    "2\\GroupFlag = J\n";

TEST(KdpRead, EntriesAndSubKeys) {
    const Opened opened(pipeSystems);
    EXPECT_EQ(opened.status, 1);
    ASSERT_EQ(opened.file.m_nSubKeyNum, 2);
    ASSERT_EQ(opened.file.m_SubKeyArr.GetSize(), 2);
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(0), L"1");
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(1), L"2");
    EXPECT_EQ(opened.text(L"1"), L"污水");
    EXPECT_EQ(opened.text(L"1\\GroupType"), L"重力流");
    EXPECT_EQ(opened.text(L"2\\GroupFlag"), L"J");
    EXPECT_EQ(opened.text(L"2\\Group"), L"<none>");
}

TEST(KdpRead, CountIsSixteenBitsWideAndKeysFollowIt) {
    static_assert(sizeof(CKDPEx::m_nSubKeyNum) == 2);
    CKDPEx file;
    EXPECT_LT(reinterpret_cast<const char*>(&file.m_nSubKeyNum),
              reinterpret_cast<const char*>(&file.m_SubKeyArr));
    EXPECT_EQ(file.m_nSubKeyNum, 0);
    EXPECT_EQ(file.m_SubKeyArr.GetSize(), 0);
}

TEST(KdpRead, ByteOrderMarkAndCarriageReturnsAreAccepted) {
    const Opened opened("\xEF\xBB\xBF"
                        "1 = a\r\n\r\n; note\r\n1\\x = b c\r\n2 =\r\n");
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.text(L"1"), L"a");
    EXPECT_EQ(opened.text(L"1\\x"), L"b c");
    EXPECT_EQ(opened.text(L"2"), L"");
    EXPECT_EQ(opened.file.m_nSubKeyNum, 2);
}

TEST(KdpRead, LastLineNeedsNoEnd) {
    EXPECT_EQ(Opened("1 = a\n2 = b").text(L"2"), L"b");
    EXPECT_EQ(Opened("1 = a\r\n2 = b\r").text(L"2"), L"b");
}

TEST(KdpRead, EmptyFileHasNoEntry) {
    const Opened opened("");
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.file.m_nSubKeyNum, 0);
    EXPECT_EQ(statusOf("\xEF\xBB\xBF"), 1);
    EXPECT_EQ(statusOf("\n \t\n"), 1);
}

TEST(KdpRead, CommentsStartWithHashOrSemicolon) {
    const Opened opened("#1 = a\n;2 = b\n  # no = entry\n\t; = \n3 = c # d ; e\n");
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.file.m_nSubKeyNum, 1);
    EXPECT_EQ(opened.text(L"3"), L"c # d ; e");
    EXPECT_EQ(opened.text(L"#1"), L"<none>");
}

TEST(KdpRead, BlanksAroundKeyAndValueAreDropped) {
    const Opened opened(" \t1\\a b \t= \t c  d \t\n2 =\n3 =   \n");
    EXPECT_EQ(opened.text(L"1\\a b"), L"c  d");
    EXPECT_EQ(opened.text(L"2"), L"");
    EXPECT_EQ(opened.text(L"3"), L"");
}

TEST(KdpRead, IdeographicBlankBelongsToTheText) {
    EXPECT_EQ(Opened("1 = \u3000a\u3000\n").text(L"1"), L"\u3000a\u3000");
}

TEST(KdpRead, SplitsAtTheFirstEqualsSignBetweenBlanks) {
    // "a=b" holds one without a blank on either side, "c= " one without a blank before it.
    const Opened opened("a=b = c = d\nx= y = z\nu =v = w\nend=of\t=\n");
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.text(L"a=b"), L"c = d");
    EXPECT_EQ(opened.text(L"x= y"), L"z");
    EXPECT_EQ(opened.text(L"u =v"), L"w");
    EXPECT_EQ(opened.text(L"end=of"), L"");
}

TEST(KdpRead, QuotesKeepBlanks) {
    const Opened opened("1 = \"  a  \"\n2 =  \"\"  \n3 = \"\t\"\n");
    EXPECT_EQ(opened.text(L"1"), L"  a  ");
    EXPECT_EQ(opened.text(L"2"), L"");
    EXPECT_EQ(opened.text(L"3"), L"\t");
}

TEST(KdpRead, EscapesWithinQuotes) {
    const Opened opened(R"(1 = "a\nb\tc\"d\\e"
2 = "\q\r\x41\ "
3 = "\\n"
4 = a\nb\\c
)");
    EXPECT_EQ(opened.text(L"1"), L"a\nb\tc\"d\\e");
    EXPECT_EQ(opened.text(L"2"), L"\\q\\r\\x41\\ ");
    EXPECT_EQ(opened.text(L"3"), L"\\n");
    EXPECT_EQ(opened.text(L"4"), L"a\\nb\\\\c");
}

TEST(KdpRead, ValueThatIsNotWhollyQuotedStandsAsItIs) {
    const Opened opened(R"(1 = "a
2 = a"
3 = "a" b
4 = "a"b"
5 = "
6 = "a\"
)");
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.text(L"1"), L"\"a");
    EXPECT_EQ(opened.text(L"2"), L"a\"");
    EXPECT_EQ(opened.text(L"3"), L"\"a\" b");
    EXPECT_EQ(opened.text(L"4"), L"\"a\"b\"");
    EXPECT_EQ(opened.text(L"5"), L"\"");
    EXPECT_EQ(opened.text(L"6"), L"\"a\\\"");
}

TEST(KdpRead, KeyThatStandsTwiceCountsTwiceAndReadsFirst) {
    const Opened opened("1 = a\n2 = b\n1 = c\n1\\x = d\n1\\x = e\n");
    ASSERT_EQ(opened.file.m_nSubKeyNum, 3);
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(0), L"1");
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(1), L"2");
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(2), L"1");
    EXPECT_EQ(opened.text(L"1"), L"a");
    EXPECT_EQ(opened.text(L"1\\x"), L"d");
}

TEST(KdpRead, TopLevelKeysKeepFileOrder) {
    const Opened opened("b\\x = 1\nc = 2\na = 3\nb = 4\n");
    ASSERT_EQ(opened.file.m_nSubKeyNum, 3);
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(0), L"c");
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(1), L"a");
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(2), L"b");
}

TEST(KdpRead, KeysDifferByCase) {
    const Opened opened("abc = 1\n");
    EXPECT_EQ(opened.text(L"abc"), L"1");
    EXPECT_EQ(opened.text(L"ABC"), L"<none>");
}

TEST(KdpRead, MalformedLineMakesOpenFail) {
    EXPECT_EQ(statusOf("1 = a\nno entry\n"), 0);
    EXPECT_EQ(statusOf("1=a\n"), 0);
    EXPECT_EQ(statusOf("1 =a\n"), 0);
    EXPECT_EQ(statusOf("1= a\n"), 0);
    EXPECT_EQ(statusOf("= a\n"), 0);
    EXPECT_EQ(statusOf(" = a\n"), 0);
    EXPECT_EQ(statusOf("1 = a\n=\n"), 0);
}

TEST(KdpRead, TextThatIsNotUtf8MakesOpenFail) {
    EXPECT_EQ(statusOf("1 = \xCE\xDB\xCB\xAE\n"), 0); // the two characters in another code page
    EXPECT_EQ(statusOf("1 = a\n# \xFF\n"), 0);
    EXPECT_EQ(statusOf("1 = \xE6\xB1\n"), 0);
    EXPECT_EQ(statusOf("1 = \xEF\xBF\xBD\n"), 1); // the replacement character itself is a character
}

TEST(KdpRead, FailedOpenLeavesAnEmptyObject) {
    TemporaryFolder folder;
    folder.write("good.Kdp", "1 = a\n");
    folder.write("bad.Kdp", "2 = b\nbad\n");
    CKDPEx file;
    ASSERT_EQ(file.Open(folder.wide("good.Kdp")), 1);
    ASSERT_EQ(file.Open(folder.wide("bad.Kdp")), 0);
    CString value(L"before");
    EXPECT_EQ(file.GetSubValue(L"1", value), 0);
    EXPECT_EQ(file.GetSubValue(L"2", value), 0);
    EXPECT_EQ(value, L"before");
    EXPECT_EQ(file.m_nSubKeyNum, 0);
    EXPECT_EQ(file.m_SubKeyArr.GetSize(), 0);
}

TEST(KdpRead, OpenReplacesWhatWasThere) {
    TemporaryFolder folder;
    folder.write("one.Kdp", "1 = a\n2 = b\n");
    folder.write("two.Kdp", "3 = c\n");
    CKDPEx file;
    ASSERT_EQ(file.Open(folder.wide("one.Kdp")), 1);
    ASSERT_EQ(file.Open(folder.wide("two.Kdp")), 1);
    EXPECT_EQ(file.m_nSubKeyNum, 1);
    CString value;
    EXPECT_EQ(file.GetSubValue(L"1", value), 0);
    EXPECT_EQ(file.GetSubValue(L"3", value), 1);
}

TEST(KdpRead, WhatIsNoFileCannotBeOpened) {
    TemporaryFolder folder;
    CKDPEx file;
    EXPECT_EQ(file.Open(folder.wide("missing.Kdp")), 0);
    EXPECT_EQ(file.Open(folder.wide("")), 0);
    EXPECT_EQ(file.Open(CString()), 0);
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(file.Open(folder.wide("pipe")), 0);
}

TEST(KdpRead, BackslashSeparatesInPaths) {
    TemporaryFolder folder;
    folder.write("SysCon/PipeLineSetting.Kdp", "1 = a\n");
    CKDPEx file;
    const CString root(host_text::fromUtf8(folder.text()));
    EXPECT_EQ(file.Open(root + L"\\SysCon\\PipeLineSetting.Kdp"), 1);
    EXPECT_EQ(file.Open(root + L"\\SysCon/PipeLineSetting.Kdp"), 1);
    EXPECT_EQ(file.m_nSubKeyNum, 1);
}

TEST(KdpRead, PathMayHoldAnyCharacter) {
    TemporaryFolder folder;
    folder.write("设置 1.Kdp", "1 = a\n");
    CKDPEx file;
    EXPECT_EQ(file.Open(folder.wide("设置 1.Kdp")), 1);
}

TEST(KdpRead, IntegersAreDecimalPrefixes) {
    const Opened opened("a = 42\nb = -7mm\nc = x\nd = 99999999999\ne = \" 5\"\nf =\ng = 0x1A\n");
    const auto number = [&](const wchar_t* key) {
        int value = 111;
        EXPECT_EQ(opened.file.GetSubValue(key, value), 1);
        return value;
    };
    EXPECT_EQ(number(L"a"), 42);
    EXPECT_EQ(number(L"b"), -7);
    EXPECT_EQ(number(L"c"), 0);
    EXPECT_EQ(number(L"d"), INT_MAX);
    EXPECT_EQ(number(L"e"), 5);
    EXPECT_EQ(number(L"f"), 0);
    EXPECT_EQ(number(L"g"), 0);
    int kept = 111;
    EXPECT_EQ(opened.file.GetSubValue(L"missing", kept), 0);
    EXPECT_EQ(kept, 111);
}

TEST(KdpRead, DoublesAreDecimalPrefixes) {
    const Opened opened("a = 12.5m\nb = -1e3\nc = inf\nd = 0x10\ne =\n");
    const auto number = [&](const wchar_t* key) {
        double value = 111.0;
        EXPECT_EQ(opened.file.GetSubValue(key, value), 1);
        return value;
    };
    EXPECT_EQ(number(L"a"), 12.5);
    EXPECT_EQ(number(L"b"), -1000.0);
    EXPECT_EQ(number(L"c"), 0.0);
    EXPECT_EQ(number(L"d"), 0.0);
    EXPECT_EQ(number(L"e"), 0.0);
    double kept = 111.0;
    EXPECT_EQ(opened.file.GetSubValue(L"missing", kept), 0);
    EXPECT_EQ(kept, 111.0);
}

TEST(KdpRead, CountStopsAtItsType) {
    std::string bytes;
    for (int i = 0; i < 32770; ++i) {
        bytes += std::to_string(i) + " = x\n";
    }
    const Opened opened(bytes);
    EXPECT_EQ(opened.status, 1);
    EXPECT_EQ(opened.file.m_nSubKeyNum, 32767);
    EXPECT_EQ(opened.file.m_SubKeyArr.GetAt(32766), L"32766");
    EXPECT_EQ(opened.text(L"32769"), L"x");
}

} // namespace
