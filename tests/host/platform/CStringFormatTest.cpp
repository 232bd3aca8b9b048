#include "platform/CString.h"

#include "CommaLocale.h"
#include "platform/PlatformException.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

namespace {

template<class... Arguments>
CString formatted(const wchar_t* format, Arguments... arguments) {
    CString text;
    text.Format(format, arguments...);
    return text;
}

TEST(CStringFormat, ShortestOfTwoFormsForReals) {
    EXPECT_EQ(formatted(L"%g", 12.5), L"12.5");
    EXPECT_EQ(formatted(L"%g", 0.0), L"0");
    EXPECT_EQ(formatted(L"%g", -3.0), L"-3");
    EXPECT_EQ(formatted(L"%g", 123456.0), L"123456");
    EXPECT_EQ(formatted(L"%g", 1234567.0), L"1.23457e+06");
    EXPECT_EQ(formatted(L"%g", 0.0001), L"0.0001");
    EXPECT_EQ(formatted(L"%g", 0.00001), L"1e-05");
    EXPECT_EQ(formatted(L"%g", 1.0 / 3.0), L"0.333333");
    EXPECT_EQ(formatted(L"%.10g", 1234567.25), L"1234567.25");
    EXPECT_EQ(formatted(L"%#g", 1.0), L"1.00000");
    EXPECT_EQ(formatted(L"%G", 1.0e-7), L"1E-07");
}

TEST(CStringFormat, FixedAndExponentForms) {
    EXPECT_EQ(formatted(L"%.3f", 2.0005), L"2.001") << "2.0005 lies a little above";
    EXPECT_EQ(formatted(L"%f", 1.5), L"1.500000");
    EXPECT_EQ(formatted(L"%8.2f|", -1.25), L"   -1.25|");
    EXPECT_EQ(formatted(L"%-8.1f|", 1.5), L"1.5     |");
    EXPECT_EQ(formatted(L"%08.2f", 1.25), L"00001.25");
    EXPECT_EQ(formatted(L"%e", 1500.0), L"1.500000e+03");
    EXPECT_EQ(formatted(L"%lf", 1.5), L"1.500000");
    EXPECT_EQ(formatted(L"%.1Lf", 1.5L), L"1.5");
    EXPECT_EQ(formatted(L"%g", std::numeric_limits<double>::infinity()), L"inf");
}

TEST(CStringFormat, Integers) {
    EXPECT_EQ(formatted(L"%d %i", -5, 7), L"-5 7");
    EXPECT_EQ(formatted(L"%5d|%-5d|%05d|%+d", 42, 42, 42, 42), L"   42|42   |00042|+42");
    EXPECT_EQ(formatted(L"%u", 4294967295U), L"4294967295");
    EXPECT_EQ(formatted(L"%x %X %#x %o", 255U, 255U, 255U, 8U), L"ff FF 0xff 10");
    EXPECT_EQ(formatted(L"%lld %I64d", -9000000000LL, 9000000000LL), L"-9000000000 9000000000");
    EXPECT_EQ(formatted(L"%I64X", 0xABCDEF0123456789ULL), L"ABCDEF0123456789");
    EXPECT_EQ(formatted(L"%ld %lu", -3L, 3UL), L"-3 3");
    EXPECT_EQ(formatted(L"%hd %hhu", 65537, 257), L"1 1") << "cut to their sizes";
    EXPECT_EQ(formatted(L"%zu", std::size_t{12}), L"12");
    EXPECT_EQ(formatted(L"%*d|%-*d|%*d", 4, 1, 4, 2, -4, 3), L"   1|2   |3   ");
    EXPECT_EQ(formatted(L"%.3d", 7), L"007");
    EXPECT_EQ(formatted(L"%I32d", 7), L"7");
}

TEST(CStringFormat, TextIsWideUnlessSaidOtherwise) {
    EXPECT_EQ(formatted(L"%s-%ls", L"\u6C61\u6C34", L"b"), L"\u6C61\u6C34-b");
    EXPECT_EQ(formatted(L"%S-%hs", "a", "\xE6\xB0\xB4"), L"a-\u6C34");
    EXPECT_EQ(formatted(L"%5s|%-5s|%.2s", L"abc", L"abc", L"abc"), L"  abc|abc  |ab");
    EXPECT_EQ(formatted(L"%.*s", 1, L"abc"), L"a");
    EXPECT_EQ(formatted(L"%c%C%3c", L'\u6C34', 'x', L'y'), L"\u6C34x  y");
    EXPECT_EQ(formatted(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
    EXPECT_EQ(formatted(L"%s", CString(L"of an object").GetString()), L"of an object");
}

TEST(CStringFormat, PlainPartsAndUnknownConversions) {
    EXPECT_EQ(formatted(L"100%% sure"), L"100% sure");
    EXPECT_EQ(formatted(L"%y %d", 3), L"%y 3");
    EXPECT_EQ(formatted(L"at the end %"), L"at the end %");
    EXPECT_EQ(formatted(L""), L"");
    EXPECT_EQ(formatted(L"%s\\GroupFlag", L"1"), L"1\\GroupFlag");
    CString text;
    EXPECT_THROW(text.Format(nullptr), CInvalidArgException);
}

TEST(CStringFormat, MayTakeTheTextItself) {
    CString text(L"old");
    text.Format(L"%s-%s", text.GetString(), text.GetString());
    EXPECT_EQ(text, L"old-old");
    text.AppendFormat(L"/%d", 3);
    EXPECT_EQ(text, L"old-old/3");
}

TEST(CStringFormat, NumbersDoNotDependOnTheProcessLocale) {
    const platform_test::CommaLocale comma;
    ASSERT_TRUE(comma.works());
    EXPECT_EQ(formatted(L"%g %.2f", 1.5, 2.25), L"1.5 2.25");
}

} // namespace
