#include "UserFile.h"

#include "Settings.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using sibling_tests::TemporaryFolder;

namespace {

constexpr const char* fileName = "SysCon/User.Kdp";

/// An empty system path; no user file is open before and after.
class UserFileTest : public ::testing::Test {
protected:
    UserFileTest() { siblings::setSystemPath(folder.text()); }
    ~UserFileTest() override {
        EXPECT_EQ(CloseUserFile(), 0) << "the test has left the file open";
        siblings::setSystemPath("");
    }

    std::string bytes() const { return folder.read(fileName); }

    TemporaryFolder folder;
};

TEST_F(UserFileTest, ValuesAreWrittenWhenTheFileIsClosed) {
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"对话框\\left", 12), 1);
    EXPECT_EQ(SetDefaultValue(L"对话框\\top", -3), 1);
    EXPECT_EQ(folder.entries(), 0);
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(bytes(), "对话框\\left = 12\n对话框\\top = -3\n");
}

TEST_F(UserFileTest, ValuesAreReadBack) {
    folder.write(fileName, "1\\left = 12\n1\\text = no number\n");
    EXPECT_EQ(OpenUserFile(), 1);
    int value = 150;
    EXPECT_EQ(GetDefaultValue(L"1\\left", value), 1);
    EXPECT_EQ(value, 12);
    EXPECT_EQ(GetDefaultValue(L"1\\text", value), 1);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(CloseUserFile(), 1);
}

TEST_F(UserFileTest, MissingKeyLeavesThePreset) {
    EXPECT_EQ(OpenUserFile(), 1);
    int value = 150;
    EXPECT_EQ(GetDefaultValue(L"1\\left", value), 0);
    EXPECT_EQ(value, 150);
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(folder.entries(), 0) << "reading makes no file";
}

TEST_F(UserFileTest, SetValueIsReadBeforeItIsWritten) {
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"k", 5), 1);
    int value = 0;
    EXPECT_EQ(GetDefaultValue(L"k", value), 1);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(CloseUserFile(), 1);
}

TEST_F(UserFileTest, CommentsAndOtherKeysStay) {
    folder.write(fileName, "# mine\r\nother = x\r\nk = 1\r\n");
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"k", 2), 1);
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(bytes(), "# mine\r\nother = x\r\nk = 2\r\n");
}

TEST_F(UserFileTest, FileInWhichNothingWasSetIsNotWritten) {
    folder.write(fileName, "k = 1\n");
    // A file that is written is another one under the same name.
    const auto node = [this] {
        struct stat status {};
        EXPECT_EQ(::stat((folder.path() / fileName).c_str(), &status), 0);
        return status.st_ino;
    };
    const ino_t before = node();
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(node(), before);
}

TEST_F(UserFileTest, WithoutAnOpenFileNothingIsDone) {
    int value = 150;
    EXPECT_EQ(GetDefaultValue(L"k", value), 0);
    EXPECT_EQ(SetDefaultValue(L"k", 1), 0);
    EXPECT_EQ(CloseUserFile(), 0);
    EXPECT_EQ(value, 150);
    EXPECT_EQ(folder.entries(), 0);
}

TEST_F(UserFileTest, FileOpenedTwiceKeepsWhatWasSet) {
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"k", 1), 1);
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(bytes(), "k = 1\n");
}

TEST_F(UserFileTest, FileThatCannotBeReadIsNotOpenedAndStays) {
    folder.write(fileName, "this is no entry\n");
    EXPECT_EQ(OpenUserFile(), 0);
    EXPECT_EQ(SetDefaultValue(L"k", 1), 0);
    EXPECT_EQ(CloseUserFile(), 0);
    EXPECT_EQ(bytes(), "this is no entry\n");
}

TEST_F(UserFileTest, MissingSystemPathIsReportedByClosing) {
    siblings::setSystemPath(folder.text() + "/missing");
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"k", 1), 1);
    EXPECT_EQ(CloseUserFile(), 0);
    EXPECT_EQ(folder.entries(), 0);
}

TEST_F(UserFileTest, FileIsClosedWhereItWasOpened) {
    EXPECT_EQ(OpenUserFile(), 1);
    EXPECT_EQ(SetDefaultValue(L"k", 1), 1);
    const TemporaryFolder other;
    siblings::setSystemPath(other.text());
    EXPECT_EQ(CloseUserFile(), 1);
    EXPECT_EQ(bytes(), "k = 1\n");
    EXPECT_EQ(other.entries(), 0);
}

} // namespace
