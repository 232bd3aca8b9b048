#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

namespace module_tests {
namespace {

class FlowKind : public DrawingTest {};

TEST_F(FlowKind, GravityIsOneAndPressureIsZero) {
    EXPECT_EQ(PelGetDirectionSytle(kSewer), 1);
    EXPECT_EQ(PelGetDirectionSytle(kSupply), 0);
}

TEST_F(FlowKind, EmptyNameIsUnknownEvenWhenAnEntryHasNoName) {
    drawing.writePipeSystems("1 =\n1\\GroupType = 重力流\n");
    EXPECT_EQ(PelGetDirectionSytle(L""), -1);
}

TEST_F(FlowKind, MissingSettingsFileIsUnknown) {
    drawing.removePipeSystems();
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
}

TEST_F(FlowKind, UnreadableSettingsFileIsUnknown) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 重力流\nthis is no entry\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
}

TEST_F(FlowKind, UnlistedSystemIsUnknown) {
    EXPECT_EQ(PelGetDirectionSytle(L"燃气"), -1);
}

TEST_F(FlowKind, NameInOtherCaseIsUnknown) {
    drawing.writePipeSystems("1 = Sewer\n1\\GroupType = 重力流\n");
    EXPECT_EQ(PelGetDirectionSytle(L"Sewer"), 1);
    EXPECT_EQ(PelGetDirectionSytle(L"sewer"), -1);
    EXPECT_EQ(PelGetDirectionSytle(L"SEWER"), -1);
}

TEST_F(FlowKind, NameWithATrailingBlankIsUnknown) {
    EXPECT_EQ(PelGetDirectionSytle(L"污水 "), -1);
}

TEST_F(FlowKind, EntryWithoutKindIsUnknown) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = W\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
}

TEST_F(FlowKind, KindWithATrailingBlankIsUnknown) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = \"重力流 \"\n"
                             "2 = 给水\n2\\GroupType = \"压力流 \"\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
    EXPECT_EQ(PelGetDirectionSytle(kSupply), -1);
}

TEST_F(FlowKind, AnyOtherKindIsUnknown) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 真空流\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
}

TEST_F(FlowKind, OfTwoEntriesOfOneNameTheFirstInTheFileDecides) {
    drawing.writePipeSystems("9 = 污水\n9\\GroupType = 压力流\n9\\GroupFlag = first\n"
                             "1 = 污水\n1\\GroupType = 重力流\n1\\GroupFlag = second\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), 0);
    CString flag;
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 1);
    EXPECT_EQ(utf8(flag), "first");
}

TEST_F(FlowKind, FirstEntryWithoutKindHidesASecondOfItsName) {
    drawing.writePipeSystems("1 = 污水\n2 = 污水\n2\\GroupType = 重力流\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), -1);
}

TEST_F(FlowKind, SubKeysAreNoEntries) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 重力流\n1\\Other = 雨水\n"
                             "1\\Other\\GroupType = 压力流\n");
    EXPECT_EQ(PelGetDirectionSytle(kStorm), -1);
}

TEST_F(FlowKind, ChangedSettingsFileCountsAtTheNextCall) {
    EXPECT_EQ(PelGetDirectionSytle(kSewer), 1);
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 压力流\n# longer than before\n");
    EXPECT_EQ(PelGetDirectionSytle(kSewer), 0);
}

class SystemFlag : public DrawingTest {
protected:
    CString flag = L"as it was";
};

TEST_F(SystemFlag, FlagOfAListedSystemIsRead) {
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 1);
    EXPECT_EQ(utf8(flag), "W");
    EXPECT_EQ(PelGetSystemFlag(flag, kSupply), 1);
    EXPECT_EQ(utf8(flag), "J");
}

TEST_F(SystemFlag, FlagIsHandedOverAsItStands) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = \" w 1 \"\n");
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 1);
    EXPECT_EQ(utf8(flag), " w 1 ");
}

TEST_F(SystemFlag, KindIsNotAsked) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = W\n");
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 1);
    EXPECT_EQ(utf8(flag), "W");
}

TEST_F(SystemFlag, UnlistedSystemGivesZeroAndLeavesTheText) {
    EXPECT_EQ(PelGetSystemFlag(flag, L"燃气"), 0);
    EXPECT_EQ(utf8(flag), "as it was");
}

TEST_F(SystemFlag, NameInOtherCaseGivesZero) {
    drawing.writePipeSystems("1 = Sewer\n1\\GroupFlag = W\n");
    EXPECT_EQ(PelGetSystemFlag(flag, L"sewer"), 0);
}

TEST_F(SystemFlag, MissingFlagGivesZeroAndLeavesTheText) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupType = 重力流\n");
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 0);
    EXPECT_EQ(utf8(flag), "as it was");
}

TEST_F(SystemFlag, UnreadableSettingsFileGivesZeroAndLeavesTheText) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = W\nthis is no entry\n");
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 0);
    EXPECT_EQ(utf8(flag), "as it was");
}

TEST_F(SystemFlag, MissingSettingsFileGivesZero) {
    drawing.removePipeSystems();
    EXPECT_EQ(PelGetSystemFlag(flag, kSewer), 0);
    EXPECT_EQ(utf8(flag), "as it was");
}

TEST_F(SystemFlag, EmptyNameFindsAnEntryWithoutValue) {
    drawing.writePipeSystems("1 = 污水\n1\\GroupFlag = W\n2 =\n2\\GroupFlag = N\n");
    EXPECT_EQ(PelGetSystemFlag(flag, L""), 1);
    EXPECT_EQ(utf8(flag), "N");
}

TEST_F(SystemFlag, EmptyNameWithoutSuchAnEntryGivesZero) {
    EXPECT_EQ(PelGetSystemFlag(flag, L""), 0);
    EXPECT_EQ(utf8(flag), "as it was");
}

} // namespace
} // namespace module_tests
