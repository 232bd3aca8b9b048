#include "platform/TextToNumber.h"

#include "CommaLocale.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

struct RealCase {
    const wchar_t* text;
    double value;
    int read;
};

class RealPrefix : public testing::TestWithParam<RealCase> {};

TEST_P(RealPrefix, IsReadToItsEnd) {
    wchar_t* end = nullptr;
    const RealCase& given = GetParam();
    const double value = platform_crt::wcstod(given.text, &end);
    EXPECT_EQ(value, given.value);
    EXPECT_EQ(std::signbit(value), std::signbit(given.value));
    EXPECT_EQ(end - given.text, given.read);
    EXPECT_EQ(platform_crt::wcstod(given.text, nullptr), given.value);
}

constexpr double infinite = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Texts, RealPrefix,
    testing::Values(
        RealCase{L"", 0.0, 0}, RealCase{L"abc", 0.0, 0}, RealCase{L"12.5m", 12.5, 4},
        RealCase{L"1e", 1.0, 1}, RealCase{L"1e+", 1.0, 1}, RealCase{L"1e+x", 1.0, 1},
        RealCase{L".5", 0.5, 2}, RealCase{L"5.", 5.0, 2}, RealCase{L".", 0.0, 0},
        RealCase{L"-", 0.0, 0}, RealCase{L"-.", 0.0, 0}, RealCase{L"+-1", 0.0, 0},
        RealCase{L"  \t\n 7", 7.0, 6},
        RealCase{L"\u3000"
                 L"2",
                 2.0, 2},
        RealCase{L"   ", 0.0, 0}, RealCase{L"+3.25", 3.25, 5}, RealCase{L"-0", -0.0, 2},
        RealCase{L"- 1", 0.0, 0}, RealCase{L"1.2.3", 1.2, 3}, RealCase{L"1,5", 1.0, 1},
        RealCase{L"2e3", 2000.0, 3}, RealCase{L"2E-2x", 0.02, 4}, RealCase{L"1e5e5", 1.0e5, 3},
        RealCase{L"0x1A", 0.0, 1}, RealCase{L"inf", 0.0, 0}, RealCase{L"-infinity", 0.0, 0},
        RealCase{L"nan", 0.0, 0}, RealCase{L"1e400", infinite, 5},
        RealCase{L"-1e400", -infinite, 6}, RealCase{L"1e-400", 0.0, 6},
        RealCase{L"-1e-400", -0.0, 7}, RealCase{L"1e99999999999999999999", infinite, 22},
        RealCase{L"1e-99999999999999999999", 0.0, 23}, RealCase{L"0e99999999999999999999", 0.0, 22},
        RealCase{L"4.9e-324", 0x1p-1074, 8}, RealCase{L"0.1", 0.1, 3},
        RealCase{L"9007199254740993", 9007199254740992.0, 16}, RealCase{L"\uFF11", 0.0, 0},
        // Around the most digits that are a double without rounding.
        RealCase{L"999999999999999.", 999999999999999.0, 16},
        RealCase{L"123456789012345m", 123456789012345.0, 15},
        RealCase{L"1234567890.12345.6", 1234567890.12345, 16},
        RealCase{L"0000000000000001.5", 1.5, 18}, RealCase{L"-.0", -0.0, 3}));

/// Up to twenty digits with a point somewhere or nowhere, now and then an exponent.
std::string someNumber(std::mt19937& random) {
    const std::size_t digits = 1 + random() % 20;
    const std::size_t point = random() % (digits + 3);
    std::string text = random() % 4 == 0 ? "-" : "";
    for (std::size_t i = 0; i < digits; ++i) {
        text += i == point ? "." : "";
        text += static_cast<char>('0' + random() % 10);
    }
    return random() % 8 == 0 ? text + "e-" + std::to_string(random() % 30) : text;
}

// The C library's own conversion is the other road.
TEST(RealText, NumbersAreRoundedCorrectly) {
    std::mt19937 random(17);
    for (int i = 0; i < 50000; ++i) {
        const std::string text = someNumber(random);
        const std::wstring wide(text.begin(), text.end());
        wchar_t* end = nullptr;
        const double value = platform_crt::wcstod(wide.c_str(), &end);
        EXPECT_EQ(value, std::strtod(text.c_str(), nullptr)) << text;
        EXPECT_EQ(end, wide.c_str() + wide.size()) << text;
    }
}

TEST(RealText, LongNumbersKeepTheirMagnitude) {
    const std::wstring great = L"1" + std::wstring(400, L'0');
    EXPECT_EQ(platform_crt::wcstod(great.c_str(), nullptr), HUGE_VAL);
    EXPECT_EQ(platform_crt::wcstod((great + L"e-400").c_str(), nullptr), 1.0);
    const std::wstring small = L"0." + std::wstring(400, L'0') + L"1";
    EXPECT_EQ(platform_crt::wcstod(small.c_str(), nullptr), 0.0);
    EXPECT_EQ(platform_crt::wcstod((small + L"e401").c_str(), nullptr), 1.0);
}

TEST(RealText, DoesNotDependOnTheProcessLocale) {
    const platform_test::CommaLocale comma;
    ASSERT_TRUE(comma.works());
    EXPECT_EQ(platform_crt::wcstod(L"1.5", nullptr), 1.5);
    EXPECT_EQ(platform_crt::wcstod(L"1,5", nullptr), 1.0);
}

struct IntegerCase {
    const wchar_t* text;
    int value;
};

class IntegerPrefix : public testing::TestWithParam<IntegerCase> {};

TEST_P(IntegerPrefix, IsRead) {
    EXPECT_EQ(_wtoi(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IntegerPrefix,
    testing::Values(IntegerCase{L"", 0}, IntegerCase{nullptr, 0}, IntegerCase{L"300", 300},
                    IntegerCase{L"300.5", 300}, IntegerCase{L"DN300", 0},
                    IntegerCase{L" \t42x", 42}, IntegerCase{L"-17", -17}, IntegerCase{L"+17", 17},
                    IntegerCase{L"--1", 0}, IntegerCase{L"- 1", 0}, IntegerCase{L"0x1A", 0},
                    IntegerCase{L"1e3", 1},
                    IntegerCase{L"\u3000"
                                L"8",
                                8},
                    IntegerCase{L"007", 7}, IntegerCase{L"2147483647", INT_MAX},
                    IntegerCase{L"2147483648", INT_MAX}, IntegerCase{L"-2147483648", INT_MIN},
                    IntegerCase{L"-2147483649", INT_MIN},
                    IntegerCase{L"99999999999999999999999", INT_MAX},
                    IntegerCase{L"-99999999999999999999999", INT_MIN}));

} // namespace
