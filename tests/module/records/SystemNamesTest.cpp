#include "records/SystemNames.h"

#include <gtest/gtest.h>

namespace module_tests {
namespace {

using tkvlt::SystemNames;

TEST(SystemNames, ANameHasOneNumberAndANumberItsName) {
    SystemNames names;
    const int rain = names.NumberOf(L"雨水");
    const int sewage = names.NumberOf(L"污水");
    EXPECT_NE(rain, sewage);
    // Asked in turn, so that neither is always the one that was asked for last.
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(names.NumberOf(L"雨水"), rain);
        EXPECT_EQ(names.NumberOf(L"污水"), sewage);
        EXPECT_EQ(names.NumberOf(L"污水"), sewage);
    }
    EXPECT_EQ(names[rain].Compare(L"雨水"), 0);
    EXPECT_EQ(names[sewage].Compare(L"污水"), 0);
}

TEST(SystemNames, NamesThatDifferInCaseAloneAreTwo) {
    SystemNames names;
    EXPECT_NE(names.NumberOf(L"Rain"), names.NumberOf(L"rain"));
}

TEST(SystemNames, AnEmptyNameIsANameLikeAnother) {
    SystemNames names;
    const int empty = names.NumberOf(CString());
    const int rain = names.NumberOf(L"雨水");
    EXPECT_NE(empty, rain);
    EXPECT_EQ(names.NumberOf(L""), empty);
    EXPECT_TRUE(names[empty].IsEmpty());
}

} // namespace
} // namespace module_tests
