#include "platform/SupportFiles.h"

#include "platform/ProgramFolder.h"
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

TEST_F(SupportFilesTest, FolderOfTheVariableCountsWhereNoneIsGiven) {
    folder.write("one/both.lin", "");
    folder.write("system/Support/both.lin", "");
    folder.write("system/Support/own.lin", "");
    ::setenv("TKVLT_SYSTEM_PATH", at("system").c_str(), 1);
    host::setSupportFolders({at("one")});
    EXPECT_EQ(host::findSupportFile(L"both.lin"), at("one/both.lin"));
    EXPECT_EQ(host::findSupportFile(L"own.lin"), "");
    EXPECT_NE(host::findSupportFile(L"acad.lin"), "") << "the program's own stay";
    host::setSupportFolders({});
    EXPECT_EQ(host::findSupportFile(L"both.lin"), at("system/Support/both.lin"));
    EXPECT_EQ(host::findSupportFile(L"own.lin"), at("system/Support/own.lin"));
}

TEST_F(SupportFilesTest, WithoutAnyTheInstalledSettingsHaveTheFolder) {
    const std::string program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
    const std::string installed = host::installedSettings(program) + "/Support";
    EXPECT_EQ(host::supportFolders().front(), installed);
    ::setenv("TKVLT_SYSTEM_PATH", "", 1);
    EXPECT_EQ(host::supportFolders().front(), installed);
    ::setenv("TKVLT_SYSTEM_PATH", "C:\\own", 1);
    EXPECT_EQ(host::supportFolders().front(), "C:/own/Support");
    host::setSupportFolders({"x\\y", "z"});
    EXPECT_EQ(host::supportFolders()[0], "x/y");
    EXPECT_EQ(host::supportFolders()[1], "z");
    EXPECT_EQ(host::supportFolders().size(), 4U) << "and the two of the program";
}

TEST_F(SupportFilesTest, NameIsFoundInAnyCase) {
    folder.write("one/Acad管Ä.LIN", "");
    folder.write("two/acad管ä.lin", "");
    host::setSupportFolders({at("one"), at("two")});
    EXPECT_EQ(host::findSupportFile(L"aCAD管ä.lin"), at("one/Acad管Ä.LIN"));
    EXPECT_EQ(host::findSupportFile(L"acad管ä.lin"), at("one/Acad管Ä.LIN"))
        << "the order of the folders goes first";
    const std::wstring two = host_text::fromUtf8(at("two"));
    EXPECT_EQ(host::findSupportFile(two + L"\\ACAD管Ä.lin"), at("two/acad管ä.lin"));
}

TEST_F(SupportFilesTest, OfSeveralSpellingsTheOneThatIsAskedForCounts) {
    for (const char* const name : {"AB.lin", "Ab.lin", "ab.lin", "aB.lin/folder"}) {
        folder.write(name, "");
    }
    host::setSupportFolders({folder.text()});
    EXPECT_EQ(host::findSupportFile(L"Ab.lin"), at("Ab.lin"));
    EXPECT_EQ(host::findSupportFile(L"aB.lin"), at("AB.lin")) << "the folder aB.lin is no file";
}

TEST_F(SupportFilesTest, VersionChangesWithTheFolders) {
    const std::uint64_t first = host::supportFoldersVersion();
    EXPECT_EQ(host::supportFoldersVersion(), first);
    host::setSupportFolders({at("one")});
    const std::uint64_t second = host::supportFoldersVersion();
    EXPECT_NE(second, first);
    ::setenv("TKVLT_SYSTEM_PATH", at("one").c_str(), 1);
    EXPECT_NE(host::supportFoldersVersion(), second);
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
