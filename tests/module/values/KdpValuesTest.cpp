#include "utilities/KdpValues.h"
#include "host/platform/SteppedProcess.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <filesystem>

namespace module_tests {
namespace {

constexpr const char* kFile = "SysCon/Free.Kdp";
constexpr const wchar_t* kArgument = L"SysCon\\Free.Kdp";

/// A system path with one settings file.
class KdpValuesTest : public ::testing::Test {
protected:
    KdpValuesTest() { siblings::setSystemPath(folder.text()); }
    ~KdpValuesTest() override { siblings::setSystemPath(""); }

    void write(const std::string& bytes) const { folder.write(kFile, bytes); }
    std::string bytes() const { return folder.read(kFile); }
    static std::string textOf(const wchar_t* key) {
        CString value = L"as it was";
        PelGetKDPValue(kArgument, key, value);
        return utf8(value);
    }

    sibling_tests::TemporaryFolder folder;
};

TEST_F(KdpValuesTest, ValueIsReadAsTextIntegerAndDouble) {
    write("比例 = 500.25\n");
    CString text;
    int integer = 0;
    double real = 0.0;
    EXPECT_EQ(PelGetKDPValue(kArgument, L"比例", text), 1);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"比例", integer), 1);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"比例", real), 1);
    EXPECT_EQ(utf8(text), "500.25");
    EXPECT_EQ(integer, 500);
    EXPECT_EQ(real, 500.25);
}

TEST_F(KdpValuesTest, SubKeysAreReadByTheirPath) {
    write("1 = a\n1\\x\\y = deep\n");
    EXPECT_EQ(textOf(L"1\\x\\y"), "deep");
}

TEST_F(KdpValuesTest, MissingKeyGivesZeroAndLeavesTheValue) {
    write("1 = a\n");
    CString text = L"as it was";
    int integer = 7;
    double real = 0.5;
    EXPECT_EQ(PelGetKDPValue(kArgument, L"2", text), 0);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"2", integer), 0);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"2", real), 0);
    EXPECT_EQ(utf8(text), "as it was");
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(real, 0.5);
}

TEST_F(KdpValuesTest, MissingFileGivesZeroAndLeavesTheValue) {
    CString text = L"as it was";
    int integer = 7;
    double real = 0.5;
    EXPECT_EQ(PelGetKDPValue(kArgument, L"1", text), 0);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"1", integer), 0);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"1", real), 0);
    EXPECT_EQ(utf8(text), "as it was");
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(real, 0.5);
    EXPECT_EQ(folder.entries(), 0);
}

TEST_F(KdpValuesTest, SettingInAMissingFileGivesZeroAndMakesNothing) {
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1", CString(L"a")), 0);
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1", 1), 0);
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1", 1.0), 0);
    EXPECT_EQ(folder.entries(), 0) << "neither the file nor its folder";
}

TEST_F(KdpValuesTest, TextIntegerAndDoubleAreSet) {
    write("");
    EXPECT_EQ(PelSetKDPValue(kArgument, L"text", CString(L"管 径")), 1);
    EXPECT_EQ(PelSetKDPValue(kArgument, L"integer", -2147483647 - 1), 1);
    EXPECT_EQ(PelSetKDPValue(kArgument, L"double", 0.1), 1);
    EXPECT_EQ(bytes(), "text = 管 径\ninteger = -2147483648\ndouble = 0.1\n");
    int integer = 0;
    double real = 0.0;
    EXPECT_EQ(PelGetKDPValue(kArgument, L"integer", integer), 1);
    EXPECT_EQ(PelGetKDPValue(kArgument, L"double", real), 1);
    EXPECT_EQ(integer, -2147483647 - 1);
    EXPECT_EQ(real, 0.1);
}

TEST_F(KdpValuesTest, FileLiesBelowTheSystemPath) {
    folder.write("Top.Kdp", "1 = top\n");
    CString value;
    EXPECT_EQ(PelGetKDPValue(L"Top.Kdp", L"1", value), 1);
    EXPECT_EQ(utf8(value), "top");
    EXPECT_EQ(PelGetKDPValue(L"SysCon\\Top.Kdp", L"1", value), 0);
}

TEST_F(KdpValuesTest, ChangedSystemPathCountsAtTheNextCall) {
    write("1 = first\n");
    EXPECT_EQ(textOf(L"1"), "first");
    const sibling_tests::TemporaryFolder other;
    other.write(kFile, "1 = second\n");
    siblings::setSystemPath(other.text());
    EXPECT_EQ(textOf(L"1"), "second");
}

TEST_F(KdpValuesTest, CommentsOrderLineEndsAndOtherLinesStay) {
    write("\xEF\xBB\xBF# head\r\n\r\n  1   =  a  \r\n; note\r\n1\\x = \"a\\qb\"\r\n"
          "unknown\\key = z\n1 = again\r\nlast =");
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1\\x", 12), 1);
    EXPECT_EQ(bytes(), "\xEF\xBB\xBF# head\r\n\r\n  1   =  a  \r\n; note\r\n1\\x = 12\r\n"
                       "unknown\\key = z\n1 = again\r\nlast =");
}

TEST_F(KdpValuesTest, NewKeyGoesToTheEndInTheFilesLineEnds) {
    write("# head\r\n1 = a");
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1\\x", 0.25), 1);
    EXPECT_EQ(bytes(), "# head\r\n1 = a\r\n1\\x = 0.25\r\n");
}

TEST_F(KdpValuesTest, FileThatCannotBeReadGivesZeroAndKeepsItsBytes) {
    write("1 = a\nthis is no entry\n");
    EXPECT_EQ(PelSetKDPValue(kArgument, L"1", 1), 0);
    EXPECT_EQ(textOf(L"1"), "as it was");
    EXPECT_EQ(bytes(), "1 = a\nthis is no entry\n");
}

TEST_F(KdpValuesTest, FailedSaveIsNotReported) {
    write("1 = a\n");
    // No line can hold a key with a line break, so the file cannot be saved.
    EXPECT_EQ(PelSetKDPValue(kArgument, L"two\nlines", CString(L"b")), 1);
    EXPECT_EQ(bytes(), "1 = a\n");
}

TEST_F(KdpValuesTest, SaveKilledAtAnySystemCallLeavesTheOldFileOrTheNewOne) {
    std::string old;
    for (int i = 0; i < 1000; ++i) {
        old += "entry " + std::to_string(i) + " = some value that makes the file long\n";
    }
    const std::string next = old + "added = 1\n";
    int oldOnes = 0;
    int newOnes = 0;
    const int kills = host_tests::killAtEachCall(
        [&] { write(old); }, [] { return PelSetKDPValue(kArgument, L"added", 1) == 1 ? 0 : 1; },
        [&](int calls) {
            const std::string found = bytes();
            oldOnes += found == old ? 1 : 0;
            newOnes += found == next ? 1 : 0;
            EXPECT_TRUE(found == old || found == next)
                << "killed after " << calls << " calls: " << found.size() << " bytes";
        });
    EXPECT_EQ(oldOnes + newOnes, kills);
    EXPECT_GT(oldOnes, 4) << "opening, writing, flushing and renaming come before";
    EXPECT_GT(newOnes, 0) << "the process's end comes after";
    EXPECT_TRUE(bytes() == next) << "the save that nobody killed";
}

} // namespace
} // namespace module_tests
