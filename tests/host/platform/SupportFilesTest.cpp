#include "platform/SupportFiles.h"

#include "siblings/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

/// The process's folders and variable are put back at the end.
class SupportFilesTest : public ::testing::Test {
protected:
    SupportFilesTest() { ::unsetenv("TKVLT_SYSTEM_PATH"); }
    ~SupportFilesTest() override {
        host::setSupportFolders({});
        ::unsetenv("TKVLT_SYSTEM_PATH");
    }

    std::string at(const std::string& name) const { return folder.text() + "/" + name; }

    sibling_tests::TemporaryFolder folder;
};

TEST_F(SupportFilesTest, BareNameIsSoughtInTheFoldersInTheirOrder) {
    folder.write("one/only.lin", "");
    folder.write("two/only.lin", "");
    folder.write("two/late.lin", "");
    host::setSupportFolders({at("none"), at("one"), at("two")});
    EXPECT_EQ(host::findSupportFile(L"only.lin"), at("one/only.lin"));
    EXPECT_EQ(host::findSupportFile(L"late.lin"), at("two/late.lin"));
    EXPECT_EQ(host::findSupportFile(L"missing.lin"), "");
    EXPECT_EQ(host::findSupportFile(L""), "");
}

TEST_F(SupportFilesTest, FolderOfTheSystemPathComesBehindTheGivenOnes) {
    folder.write("one/both.lin", "");
    folder.write("system/Support/both.lin", "");
    folder.write("system/Support/own.lin", "");
    ::setenv("TKVLT_SYSTEM_PATH", at("system").c_str(), 1);
    host::setSupportFolders({at("one")});
    EXPECT_EQ(host::findSupportFile(L"both.lin"), at("one/both.lin"));
    EXPECT_EQ(host::findSupportFile(L"own.lin"), at("system/Support/own.lin"));
    host::setSupportFolders({});
    EXPECT_EQ(host::findSupportFile(L"both.lin"), at("system/Support/both.lin"));
}

TEST_F(SupportFilesTest, BackslashSeparatesLikeASlash) {
    folder.write("System/管.lin", "");
    const std::wstring base = host_text::fromUtf8(folder.text());
    EXPECT_EQ(host::findSupportFile(base + L"\\System\\管.lin"), at("System/管.lin"));
    EXPECT_EQ(host::findSupportFile(base + L"/System/管.lin"), at("System/管.lin"));
}

TEST_F(SupportFilesTest, NameWithAPathIsSoughtNowhereElse) {
    folder.write("one/sub/file.lin", "");
    host::setSupportFolders({at("one")});
    EXPECT_EQ(host::findSupportFile(L"sub\\file.lin"), "");
}

TEST_F(SupportFilesTest, FolderIsNoFile) {
    folder.write("one/only.lin/file", "");
    host::setSupportFolders({at("one")});
    EXPECT_EQ(host::findSupportFile(L"only.lin"), "");
    EXPECT_EQ(host::findSupportFile(host_text::fromUtf8(at("one"))), "");
}

TEST_F(SupportFilesTest, ProgramHasItsOwnLinetypesBesideIt) {
    EXPECT_NE(host::findSupportFile(L"acadiso.lin"), "");
    EXPECT_NE(host::findSupportFile(L"acad.lin"), "");
}

} // namespace
