#include "CKDPEx.h"
#include "TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using sibling_tests::TemporaryFolder;

namespace {

/// A folder with one file, opened, to be changed and saved again.
class KdpWrite : public ::testing::Test {
protected:
    void open(const std::string& bytes) {
        folder.write("a.Kdp", bytes);
        ASSERT_EQ(file.Open(folder.wide("a.Kdp")), 1);
    }
    /// What saving makes of the file.
    std::string saved() {
        EXPECT_EQ(file.Save(folder.wide("a.Kdp")), 1);
        return folder.read("a.Kdp");
    }

    TemporaryFolder folder;
    CKDPEx file;
};

/// What a value is after it was set, saved and read by another object.
std::wstring throughAFile(const std::wstring& value) {
    TemporaryFolder folder;
    CKDPEx writer;
    writer.SetSubValueW(L"before", L"1");
    writer.SetSubValueW(L"key", CString(value));
    writer.SetSubValueW(L"behind", L"2");
    EXPECT_EQ(writer.Save(folder.wide("a.Kdp")), 1);
    CKDPEx reader;
    EXPECT_EQ(reader.Open(folder.wide("a.Kdp")), 1);
    EXPECT_EQ(reader.m_nSubKeyNum, 3);
    CString read;
    EXPECT_EQ(reader.GetSubValue(L"key", read), 1);
    return std::wstring(read.view());
}

/// The bytes of a file that holds one key with this value.
std::string lineOf(const wchar_t* value) {
    TemporaryFolder folder;
    CKDPEx writer;
    writer.SetSubValueW(L"k", CString(value));
    EXPECT_EQ(writer.Save(folder.wide("a.Kdp")), 1);
    return folder.read("a.Kdp");
}

TEST_F(KdpWrite, UnchangedFileKeepsEveryByte) {
    const std::string bytes =
        "\xEF\xBB\xBF# head\r\n\r\n  1   =  a  \r\n\t; note\n1\\x = \"a\\qb\"\n1 = "
        "again\r\n   \r\nlast =";
    open(bytes);
    EXPECT_EQ(saved(), bytes);
}

TEST_F(KdpWrite, SettingTheSameTextChangesNothing) {
    open("1   =   \"plain\"  \n");
    file.SetSubValueW(L"1", L"plain");
    EXPECT_EQ(saved(), "1   =   \"plain\"  \n");
}

TEST_F(KdpWrite, OneLineChangesAndTheRestStays) {
    open("# head\r\n  1  =   a  \r\n; note\r\n2 = b\r\n");
    file.SetSubValueW(L"1", L"new");
    EXPECT_EQ(saved(), "# head\r\n  1  =   new\r\n; note\r\n2 = b\r\n");
}

TEST_F(KdpWrite, OfAKeyThatStandsTwiceTheFirstIsWritten) {
    open("1 = a\n1 = b\n");
    file.SetSubValueW(L"1", L"c");
    EXPECT_EQ(saved(), "1 = c\n1 = b\n");
}

TEST_F(KdpWrite, NewKeyGoesToTheEnd) {
    open("1 = a\n# tail\n");
    file.SetSubValueW(L"1\\x", L"b");
    file.SetSubValueW(L"2", L"c");
    EXPECT_EQ(file.m_nSubKeyNum, 2);
    EXPECT_EQ(file.m_SubKeyArr.GetAt(1), L"2");
    EXPECT_EQ(saved(), "1 = a\n# tail\n1\\x = b\n2 = c\n");
}

TEST_F(KdpWrite, NewLineEndsLikeTheFirst) {
    open("1 = a\r\n2 = b");
    file.SetSubValueW(L"3", L"c");
    EXPECT_EQ(saved(), "1 = a\r\n2 = b\r\n3 = c\r\n");
}

TEST_F(KdpWrite, NewKeyBehindALastLineWithoutEnd) {
    open("1 = a");
    file.SetSubValueW(L"2", L"b");
    EXPECT_EQ(saved(), "1 = a\n2 = b\n");
}

TEST_F(KdpWrite, ValueMayBecomeEmptyAndFullAgain) {
    open("1 = a\n2 =\n");
    file.SetSubValueW(L"1", L"");
    file.SetSubValueW(L"2", L"b");
    EXPECT_EQ(saved(), "1 =\n2 = b\n");
    CKDPEx reader;
    ASSERT_EQ(reader.Open(folder.wide("a.Kdp")), 1);
    CString value(L"x");
    EXPECT_EQ(reader.GetSubValue(L"1", value), 1);
    EXPECT_TRUE(value.IsEmpty());
}

TEST_F(KdpWrite, SetValueReadsBackBeforeSaving) {
    open("1 = a\n");
    file.SetSubValueW(L"1", L"b");
    CString value;
    EXPECT_EQ(file.GetSubValue(L"1", value), 1);
    EXPECT_EQ(value, L"b");
    EXPECT_EQ(folder.read("a.Kdp"), "1 = a\n");
}

TEST_F(KdpWrite, DestructorSavesNothing) {
    folder.write("a.Kdp", "1 = a\n");
    {
        CKDPEx other;
        ASSERT_EQ(other.Open(folder.wide("a.Kdp")), 1);
        other.SetSubValueW(L"1", L"b");
    }
    EXPECT_EQ(folder.read("a.Kdp"), "1 = a\n");
}

TEST(KdpQuoting, OnlyWhereItMustBe) {
    EXPECT_EQ(lineOf(L"污水"), "k = 污水\n");
    EXPECT_EQ(lineOf(L"a = b # c"), "k = a = b # c\n");
    EXPECT_EQ(lineOf(L"C:\\new\\"), "k = C:\\new\\\n");
    EXPECT_EQ(lineOf(L"5\" pipe"), "k = 5\" pipe\n");
    EXPECT_EQ(lineOf(L""), "k =\n");
    EXPECT_EQ(lineOf(L" a"), "k = \" a\"\n");
    EXPECT_EQ(lineOf(L"a\t"), "k = \"a\\t\"\n");
    EXPECT_EQ(lineOf(L"\"a\""), "k = \"\\\"a\\\"\"\n");
    EXPECT_EQ(lineOf(L"a\nb"), "k = \"a\\nb\"\n");
    EXPECT_EQ(lineOf(L" C:\\new"), "k = \" C:\\\\new\"\n");
}

TEST(KdpQuoting, EveryTextComesBack) {
    const std::wstring texts[] = {L"",           L" ",
                                  L"\t",         L"\n",
                                  L"\r",         L"\r\n",
                                  L"a\r",        L"\ra",
                                  L"a\r\nb\r\n", L"\"",
                                  L"\"\"",       L"\"a",
                                  L"a\"",        L"\"a\" b",
                                  L"\\",         L"\\n",
                                  L"\"\\",       L"\"\\\"",
                                  L" \\",        L"\\\"",
                                  L" \\q ",      L"=",
                                  L" = ",        L"# a",
                                  L";",          L"污水 \U0001F6B0",
                                  L"\u3000",     L"\uFEFF",
                                  L"a\tb",       std::wstring(100000, L'x')};
    for (const std::wstring& text : texts) {
        EXPECT_EQ(throughAFile(text), text);
    }
}

TEST(KdpNumbers, IntegersAreWrittenAsDecimalText) {
    CKDPEx file;
    file.SetSubValueW(L"a", -2147483647 - 1);
    file.SetSubValueW(L"a\\b", 0);
    CString text;
    ASSERT_EQ(file.GetSubValue(L"a", text), 1);
    EXPECT_EQ(text, L"-2147483648");
    ASSERT_EQ(file.GetSubValue(L"a\\b", text), 1);
    EXPECT_EQ(text, L"0");
    int number = 5;
    ASSERT_EQ(file.GetSubValue(L"a", number), 1);
    EXPECT_EQ(number, -2147483647 - 1);
}

TEST(KdpNumbers, DoublesAreWrittenInShortestForm) {
    CKDPEx file;
    const auto written = [&](double number) {
        file.SetSubValueW(L"a", number);
        CString text;
        EXPECT_EQ(file.GetSubValue(L"a", text), 1);
        double read = 0.0;
        EXPECT_EQ(file.GetSubValue(L"a", read), 1);
        EXPECT_EQ(read, number);
        return std::wstring(text.view());
    };
    EXPECT_EQ(written(0.1), L"0.1");
    EXPECT_EQ(written(1000.0), L"1000");
    EXPECT_EQ(written(-2.5), L"-2.5");
    EXPECT_EQ(written(1.0 / 3.0), L"0.3333333333333333");
    EXPECT_EQ(written(1e300), L"1e+300");
}

TEST(KdpSave, WritesANewFile) {
    TemporaryFolder folder;
    CKDPEx file;
    file.SetSubValueW(L"1", L"a");
    EXPECT_EQ(file.Save(folder.wide("new.Kdp")), 1);
    EXPECT_EQ(folder.read("new.Kdp"), "1 = a\n");
    EXPECT_EQ(folder.entries(), 1);
}

TEST(KdpSave, BackslashSeparatesInPaths) {
    TemporaryFolder folder;
    folder.write("SysCon/x.Kdp", "1 = a\n");
    CKDPEx file;
    file.SetSubValueW(L"1", L"b");
    EXPECT_EQ(file.Save(CString(host_text::fromUtf8(folder.text())) + L"\\SysCon\\x.Kdp"), 1);
    EXPECT_EQ(folder.read("SysCon/x.Kdp"), "1 = b\n");
}

TEST(KdpSave, ReplacesTheFileInOneStep) {
    TemporaryFolder folder;
    folder.write("a.Kdp", "1 = old\n");
    std::filesystem::create_hard_link(folder.path() / "a.Kdp", folder.path() / "second");
    CKDPEx file;
    ASSERT_EQ(file.Open(folder.wide("a.Kdp")), 1);
    file.SetSubValueW(L"1", L"new");
    ASSERT_EQ(file.Save(folder.wide("a.Kdp")), 1);
    // The old file was not written into: its other name still shows the old content.
    EXPECT_EQ(folder.read("second"), "1 = old\n");
    EXPECT_EQ(folder.read("a.Kdp"), "1 = new\n");
    EXPECT_EQ(folder.entries(), 2);
}

TEST(KdpSave, KeepsTheFilesRights) {
    TemporaryFolder folder;
    folder.write("a.Kdp", "1 = old\n");
    ASSERT_EQ(::chmod((folder.path() / "a.Kdp").c_str(), 0640), 0);
    CKDPEx file;
    ASSERT_EQ(file.Save(folder.wide("a.Kdp")), 1);
    struct stat status {};
    ASSERT_EQ(::stat((folder.path() / "a.Kdp").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST(KdpSave, SymbolicLinkStaysALink) {
    TemporaryFolder folder;
    folder.write("real.Kdp", "1 = old\n");
    std::filesystem::create_symlink("real.Kdp", folder.path() / "link.Kdp");
    CKDPEx file;
    file.SetSubValueW(L"1", L"new");
    ASSERT_EQ(file.Save(folder.wide("link.Kdp")), 1);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.Kdp"));
    EXPECT_EQ(folder.read("real.Kdp"), "1 = new\n");
}

TEST(KdpSave, FailureLeavesTheTargetAlone) {
    TemporaryFolder folder;
    CKDPEx file;
    file.SetSubValueW(L"1", L"a");
    EXPECT_EQ(file.Save(folder.wide("missing/a.Kdp")), 0);
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_EQ(file.Save(folder.wide("folder")), 0);
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "folder"));
    EXPECT_EQ(file.Save(CString()), 0);
    EXPECT_EQ(folder.entries(), 1);
}

/// No file of this process may grow beyond so many bytes while this lives, as if the disk were
/// full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        static_cast<void>(std::signal(SIGXFSZ, handler_));
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST(KdpSave, WriteThatBreaksOffLeavesTheTargetAlone) {
    TemporaryFolder folder;
    folder.write("a.Kdp", "1 = old\n");
    CKDPEx file;
    file.SetSubValueW(L"1", CString(L'x', 10000));
    {
        const FileSizeLimit limit(4096);
        EXPECT_EQ(file.Save(folder.wide("a.Kdp")), 0);
    }
    EXPECT_EQ(folder.read("a.Kdp"), "1 = old\n");
    EXPECT_EQ(folder.entries(), 1);
    EXPECT_EQ(file.Save(folder.wide("a.Kdp")), 1);
    EXPECT_EQ(folder.read("a.Kdp").size(), 10005U);
}

TEST(KdpSave, KeyThatTheFormatCannotCarryIsRefused) {
    for (const wchar_t* key :
         {L"", L" a", L"a\t", L"a\nb", L"a\rb", L"#a", L";a", L"a = b", L"\uFEFFa"}) {
        TemporaryFolder folder;
        folder.write("a.Kdp", "1 = old\n");
        CKDPEx file;
        file.SetSubValueW(key, L"x");
        CString value;
        EXPECT_EQ(file.GetSubValue(key, value), 1);
        EXPECT_EQ(file.Save(folder.wide("a.Kdp")), 0) << host_text::toUtf8(key);
        EXPECT_EQ(folder.read("a.Kdp"), "1 = old\n");
        EXPECT_EQ(folder.entries(), 1);
    }
}

} // namespace
