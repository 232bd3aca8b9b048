#include "SystemPath.h"
#include "platform/ProgramFolder.h"
#include "platform/SupportFiles.h"
#include "Settings.h"
#include "TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>

using sibling_tests::TemporaryFolder;

namespace {

class SystemPathTest : public ::testing::Test {
protected:
    SystemPathTest() { clear(); }
    ~SystemPathTest() override { clear(); }

    static void clear() {
        siblings::setSystemPath("");
        ::unsetenv("TKVLT_SYSTEM_PATH");
    }
    static std::string systemPath() { return host_text::toUtf8(GetSystemPath().view()); }
};

TEST_F(SystemPathTest, OrderOfSources) {
    const std::string installed = systemPath();
    ::setenv("TKVLT_SYSTEM_PATH", "/from/variable", 1);
    EXPECT_EQ(systemPath(), "/from/variable");
    siblings::setSystemPath("/from/process 设置");
    EXPECT_EQ(systemPath(), "/from/process 设置");
    ::setenv("TKVLT_SYSTEM_PATH", "/changed", 1);
    EXPECT_EQ(systemPath(), "/from/process 设置");
    siblings::setSystemPath("");
    EXPECT_EQ(systemPath(), "/changed");
    ::setenv("TKVLT_SYSTEM_PATH", "", 1);
    EXPECT_EQ(systemPath(), installed);
}

TEST_F(SystemPathTest, InstalledFolderBelongsToTheProgram) {
    const std::string folder =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path().string();
    EXPECT_EQ(systemPath(), folder + "/share/tkvlt/settings");
}

TEST_F(SystemPathTest, InstalledFolderIsTheFirstThatExists) {
    TemporaryFolder folder;
    const std::string bin = folder.text() + "/bin";
    const std::string shared = folder.text() + "/share/tkvlt/settings";
    EXPECT_EQ(host::installedSettings(bin), shared);
    std::filesystem::create_directories(bin + "/settings");
    EXPECT_EQ(host::installedSettings(bin), bin + "/settings");
    std::filesystem::create_directories(shared);
    EXPECT_EQ(host::installedSettings(bin), shared);
}

// The host's support folder goes with the system path, from whatever source that is.
TEST_F(SystemPathTest, SupportFolderIsThatOfTheSystemPath) {
    TemporaryFolder given;
    TemporaryFolder variable;
    given.write("Support/given.lin", "");
    variable.write("Support/variable.lin", "");
    const auto first = [] { return host::supportFolders().front(); };
    EXPECT_EQ(first(), systemPath() + "/Support");
    ::setenv("TKVLT_SYSTEM_PATH", variable.text().c_str(), 1);
    EXPECT_EQ(first(), systemPath() + "/Support");
    EXPECT_EQ(host::findSupportFile(L"variable.lin"), variable.text() + "/Support/variable.lin");
    siblings::setSystemPath(given.text());
    EXPECT_EQ(first(), systemPath() + "/Support");
    EXPECT_EQ(host::findSupportFile(L"given.lin"), given.text() + "/Support/given.lin");
    EXPECT_EQ(host::findSupportFile(L"variable.lin"), "");
}

TEST_F(SystemPathTest, VariableLeadsToTheFile) {
    TemporaryFolder folder;
    folder.write("SysCon/DrawingSetting.Kdp", "DwgScale = 4\n");
    EXPECT_EQ(GetDwgScale(), 1.0);
    ::setenv("TKVLT_SYSTEM_PATH", folder.text().c_str(), 1);
    EXPECT_EQ(GetDwgScale(), 4.0);
    ::unsetenv("TKVLT_SYSTEM_PATH");
    EXPECT_EQ(GetDwgScale(), 1.0);
}

} // namespace
