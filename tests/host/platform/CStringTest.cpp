#include "platform/CString.h"
#include "platform/PlatformException.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

static_assert(sizeof(CString) == sizeof(void*));

TEST(CString, EmptyTexts) {
    const CString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_STREQ(text.GetString(), L"");
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(CString(static_cast<const wchar_t*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(L"").IsEmpty());
    EXPECT_EQ(text, static_cast<const wchar_t*>(nullptr));
}

TEST(CString, Constructors) {
    EXPECT_EQ(CString(L"abc").GetLength(), 3);
    EXPECT_EQ(CString(L"abc", 2), L"ab");
    EXPECT_EQ(CString(L'x'), L"x");
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_TRUE(CString(L'x', -1).IsEmpty());
    EXPECT_EQ(CString(std::wstring(L"wide")), L"wide");
    EXPECT_THROW(CString(L"abc", -1), CInvalidArgException);
    EXPECT_THROW(CString(nullptr, 1), CInvalidArgException);
}

TEST(CString, CopiesShareUntilOneIsChanged) {
    CString first(L"shared");
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString()) << "one buffer";
    second += L"!";
    EXPECT_EQ(first, L"shared");
    EXPECT_EQ(second, L"shared!");
    CString third = first;
    third.SetAt(0, L'S');
    EXPECT_EQ(first, L"shared");
    EXPECT_EQ(third, L"Shared");
    CString fourth = first;
    fourth.GetBuffer()[0] = L'X';
    fourth.ReleaseBuffer();
    EXPECT_EQ(first, L"shared");
    EXPECT_EQ(fourth, L"Xhared");
    CString fifth = first;
    fifth = L"other";
    EXPECT_EQ(first, L"shared");
    CString& self = first;
    first = self;
    EXPECT_EQ(first, L"shared");
}

TEST(CString, MovesLeaveSomethingUsable) {
    CString first(L"text");
    const CString second(std::move(first));
    EXPECT_EQ(second, L"text");
    first = L"again"; // NOLINT(bugprone-use-after-move): an emptied text may be used
    EXPECT_EQ(first, L"again");
}

TEST(CString, MayBeMovedBitwise) {
    alignas(CString) unsigned char from[sizeof(CString)];
    alignas(CString) unsigned char to[sizeof(CString)];
    ::new (static_cast<void*>(from)) CString(L"carried away");
    std::memcpy(to, from, sizeof(CString));
    auto* text = reinterpret_cast<CString*>(to);
    EXPECT_EQ(*text, L"carried away");
    text->~CString();
}

TEST(CString, CopiesInSeveralThreads) {
    const CString source(L"counted");
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([source] {
            for (int round = 0; round < 20'000; ++round) {
                CString copy(source);
                copy += L'x';
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(source, L"counted");
}

TEST(CString, Comparison) {
    const CString text(L"beta");
    EXPECT_EQ(text.Compare(L"beta"), 0);
    EXPECT_GT(text.Compare(L"alpha"), 0);
    EXPECT_LT(text.Compare(L"beta1"), 0);
    EXPECT_NE(text.Compare(L"Beta"), 0);
    EXPECT_EQ(text.CompareNoCase(L"BETA"), 0);
    EXPECT_TRUE(text == CString(L"beta"));
    EXPECT_TRUE(L"beta" == text);
    EXPECT_TRUE(text != L"Beta");
    EXPECT_TRUE(text < L"gamma");
    EXPECT_TRUE(L"alpha" < text);
    EXPECT_TRUE(text >= CString(L"beta"));
    EXPECT_TRUE(text <= L"beta");
    EXPECT_TRUE(text > CString(L"alpha"));
}

TEST(CString, Appending) {
    CString text;
    text += L"ab";
    text += CString(L"cd");
    text += L'e';
    text.Append(L"fgh", 2);
    text.AppendChar(L'!');
    EXPECT_EQ(text, L"abcdefg!");
    EXPECT_EQ(text + L"1", L"abcdefg!1");
    EXPECT_EQ(L"1" + text, L"1abcdefg!");
    EXPECT_EQ(CString(L"a") + CString(L"b") + L'c', L"abc");
    EXPECT_EQ(L'a' + CString(L"b"), L"ab");
    text = L"xy";
    text += text;
    text += text;
    EXPECT_EQ(text, L"xyxyxyxy");
}

TEST(CString, ManyAppendsKeepEverything) {
    CString text;
    std::wstring expected;
    for (int i = 0; i < 100'000; ++i) {
        const auto character = static_cast<wchar_t>(L'a' + i % 26);
        text += character;
        expected += character;
    }
    EXPECT_EQ(text.view(), expected);
}

TEST(CString, CharactersByIndex) {
    CString text(L"abc");
    EXPECT_EQ(text[0], L'a');
    EXPECT_EQ(text.GetAt(2), L'c');
    EXPECT_EQ(text[3], L'\0');
    EXPECT_THROW(text.GetAt(4), CInvalidArgException);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException);
    EXPECT_THROW(text.SetAt(3, L'x'), CInvalidArgException);
}

TEST(CString, Pieces) {
    const CString text(L"abcdef");
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(99), L"abcdef");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Right(2), L"ef");
    EXPECT_EQ(text.Right(99), L"abcdef");
    EXPECT_EQ(text.Mid(4), L"ef");
    EXPECT_EQ(text.Mid(1, 3), L"bcd");
    EXPECT_EQ(text.Mid(4, 99), L"ef");
    EXPECT_EQ(text.Mid(9), L"");
    EXPECT_EQ(text.Mid(-3, 2), L"ab");
}

TEST(CString, Finding) {
    const CString text(L"abcabc");
    EXPECT_EQ(text.Find(L'b'), 1);
    EXPECT_EQ(text.Find(L'b', 2), 4);
    EXPECT_EQ(text.Find(L'x'), -1);
    EXPECT_EQ(text.Find(L"ca"), 2);
    EXPECT_EQ(text.Find(L"ca", 3), -1);
    EXPECT_EQ(text.Find(L"a", 99), -1);
    EXPECT_EQ(text.ReverseFind(L'b'), 4);
    EXPECT_EQ(text.ReverseFind(L'x'), -1);
    EXPECT_EQ(text.FindOneOf(L"xcb"), 1);
}

TEST(CString, Trimming) {
    EXPECT_EQ(CString(L" \t a b \r\n").Trim(), L"a b");
    EXPECT_EQ(CString(L"  ab ").TrimLeft(), L"ab ");
    EXPECT_EQ(CString(L"  ab ").TrimRight(), L"  ab");
    EXPECT_EQ(CString(L"xxabx").Trim(L'x'), L"ab");
    EXPECT_EQ(CString(L"xyabyx").Trim(L"xy"), L"ab");
    EXPECT_EQ(CString(L"xyabyx").TrimLeft(L"xy"), L"abyx");
    EXPECT_EQ(CString(L"1.500").TrimRight(L'0'), L"1.5");
    EXPECT_EQ(CString(L"xab").TrimLeft(L'x'), L"ab");
    EXPECT_EQ(CString(L"ab12").TrimRight(L"12"), L"ab");
    EXPECT_EQ(CString(L"   ").Trim(), L"");
}

TEST(CString, Editing) {
    CString text(L"abcabc");
    EXPECT_EQ(text.Replace(L'a', L'x'), 2);
    EXPECT_EQ(text, L"xbcxbc");
    EXPECT_EQ(text.Replace(L"bc", L"--long--"), 2);
    EXPECT_EQ(text, L"x--long--x--long--");
    EXPECT_EQ(text.Replace(L"--long--", nullptr), 2);
    EXPECT_EQ(text, L"xx");
    EXPECT_EQ(text.Replace(L"", L"y"), 0);
    EXPECT_EQ(text.Replace(L"x", L"xx"), 2);
    EXPECT_EQ(text, L"xxxx");
    EXPECT_EQ(text.Insert(1, L"ab"), 6);
    EXPECT_EQ(text.Insert(99, L'!'), 7);
    EXPECT_EQ(text, L"xabxxx!");
    EXPECT_EQ(text.Delete(1, 2), 5);
    EXPECT_EQ(text.Delete(4, 99), 4);
    EXPECT_EQ(text.Delete(9), 4);
    EXPECT_EQ(text, L"xxxx");
    EXPECT_EQ(CString(L"a-b-c").Remove(L'-'), 2);
    EXPECT_EQ(CString(L"Abc\u00E9").MakeUpper(), L"ABC\u00C9");
    EXPECT_EQ(CString(L"ABc").MakeLower(), L"abc");
    EXPECT_EQ(CString(L"abc").MakeReverse(), L"cba");
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, AssigningAPieceOfItself) {
    CString text(L"abcdef");
    text = text.GetString() + 2;
    EXPECT_EQ(text, L"cdef");
    CString shared = text;
    text.SetString(text.GetString() + 1, 2);
    EXPECT_EQ(text, L"de");
    EXPECT_EQ(shared, L"cdef");
}

TEST(CString, Tokens) {
    const CString text(L",,one, two,");
    int start = 0;
    EXPECT_EQ(text.Tokenize(L", ", start), L"one");
    EXPECT_EQ(start, 6);
    EXPECT_EQ(text.Tokenize(L", ", start), L"two");
    EXPECT_EQ(start, 11);
    EXPECT_EQ(text.Tokenize(L", ", start), L"");
    EXPECT_EQ(start, -1);
    EXPECT_THROW(text.Tokenize(L",", start), CInvalidArgException);
    start = 0;
    EXPECT_EQ(CString(L"whole").Tokenize(L",", start), L"whole");
}

TEST(CString, WritableBuffer) {
    CString text;
    wchar_t* buffer = text.GetBuffer(10);
    std::wcscpy(buffer, L"written");
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"written");
    text.GetBuffer(20);
    text.ReleaseBuffer(3);
    EXPECT_EQ(text, L"wri");
    EXPECT_THROW(text.ReleaseBuffer(1000), CInvalidArgException);
    text.GetBufferSetLength(2)[1] = L'?';
    EXPECT_EQ(text, L"w?");
    CString never;
    never.ReleaseBuffer();
    EXPECT_TRUE(never.IsEmpty());
}

TEST(CString, EqualTextsHaveEqualHashes) {
    const std::hash<CString> hash;
    CString built(L"a");
    built += L"b";
    EXPECT_EQ(hash(built), hash(CString(L"ab")));
}

} // namespace
