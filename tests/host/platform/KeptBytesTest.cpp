#include "platform/KeptBytes.h"
#include "platform/OpenFile.h"
#include "siblings/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/vfs.h>
#include <system_error>
#include <unistd.h>

namespace {

using host_files::OpenFile;
using platform_memory::KeptBytes;

constexpr std::size_t kMebi = std::size_t{1} << 20;

/// Bytes of which no two pages are alike.
std::string bytesOf(std::size_t size) {
    std::string bytes(size, ' ');
    unsigned state = 7;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

/// What this process holds of mapped files, in bytes.
std::ptrdiff_t heldOfFiles() {
    std::ifstream status("/proc/self/statm");
    std::ptrdiff_t all = 0;
    std::ptrdiff_t resident = 0;
    std::ptrdiff_t shared = 0;
    status >> all >> resident >> shared;
    return shared * ::sysconf(_SC_PAGESIZE);
}

class KeptBytesTest : public ::testing::Test {
protected:
    ~KeptBytesTest() override { setTemporaryFolder(before_); }

    /// For this test alone.
    static void setTemporaryFolder(const std::optional<std::string>& folder) {
        if (folder) {
            ::setenv("TMPDIR", folder->c_str(), 1);
        } else {
            ::unsetenv("TMPDIR");
        }
    }
    KeptBytes keep(const std::string& bytes, std::size_t large) const {
        folder_.write("a.dxf", bytes);
        const OpenFile file(::open(path().c_str(), O_RDONLY));
        return KeptBytes::ofFile(file.descriptor(), bytes.size(), large);
    }
    std::string path() const { return folder_.text() + "/a.dxf"; }
    /// The system tells what the folder for temporary files lies on.
    static bool isTemporaryFolderInMemory() {
        constexpr long memory = 0x01021994;
        struct statfs system {};
        EXPECT_EQ(::statfs(std::filesystem::temp_directory_path().c_str(), &system), 0);
        return system.f_type == memory;
    }

    sibling_tests::TemporaryFolder folder_;
    std::optional<std::string> before_ = std::getenv("TMPDIR") == nullptr
                                             ? std::nullopt
                                             : std::optional<std::string>(std::getenv("TMPDIR"));
};

TEST_F(KeptBytesTest, SmallFilesLieInMemory) {
    const KeptBytes kept = keep("0\nEOF\n", 7);
    EXPECT_FALSE(kept.isInFile());
    EXPECT_EQ(kept.view(), "0\nEOF\n");
}

TEST_F(KeptBytesTest, LargeFilesLieInAFileWhereThereIsADisk) {
    const KeptBytes kept = keep("0\nEOF\n", 6);
    EXPECT_EQ(kept.isInFile(), !isTemporaryFolderInMemory());
    EXPECT_EQ(kept.view(), "0\nEOF\n");
    EXPECT_EQ(folder_.entries(), 1) << "the kept file has no name";
}

TEST_F(KeptBytesTest, AnotherProgramMayChangeAndCutTheFile) {
    const std::string bytes = bytesOf(3 * kMebi + 5);
    for (const std::size_t large : {kMebi, 4 * kMebi}) {
        const KeptBytes kept = keep(bytes, large);
        folder_.write("a.dxf", "other");
        EXPECT_TRUE(kept.view() == bytes);
        std::filesystem::resize_file(path(), 0);
        EXPECT_TRUE(kept.view() == bytes);
    }
}

TEST_F(KeptBytesTest, WhatIsNotBeingReadTakesNoMemory) {
    constexpr std::size_t step = 4096;
    const std::string bytes = bytesOf(48 * kMebi);
    const KeptBytes kept = keep(bytes, kMebi);
    const std::ptrdiff_t before = heldOfFiles();
    ASSERT_GT(before, 0);
    std::ptrdiff_t most = 0;
    for (std::size_t offset = 0; offset < bytes.size(); offset += step) {
        kept.reads(offset);
        ASSERT_TRUE(kept.view().substr(offset, step) ==
                    std::string_view(bytes).substr(offset, step));
        most = std::max(most, heldOfFiles() - before);
    }
    EXPECT_LT(most, std::ptrdiff_t{16 * kMebi});
    EXPECT_TRUE(kept.view() == bytes) << "what was let go is read back";
    if (kept.isInFile()) {
        EXPECT_GT(heldOfFiles() - before, std::ptrdiff_t{40 * kMebi})
            << "what is told of no place stays";
    }
}

TEST_F(KeptBytesTest, WithoutAFolderForTemporaryFilesLargeOnesLieInMemory) {
    for (const char* folder : {"/nowhere", "/dev/shm"}) {
        setTemporaryFolder(folder);
        const KeptBytes kept = keep("0\nEOF\n", 1);
        setTemporaryFolder(before_);
        EXPECT_FALSE(kept.isInFile()) << folder;
        EXPECT_EQ(kept.view(), "0\nEOF\n");
    }
}

TEST_F(KeptBytesTest, LimitOnFilesKeepsLargeOnesInMemory) {
    const std::string bytes = bytesOf(kMebi);
    folder_.write("a.dxf", bytes);
    const OpenFile file(::open(path().c_str(), O_RDONLY));
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{kMebi - 1, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const KeptBytes kept = KeptBytes::ofFile(file.descriptor(), bytes.size(), 1);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_FALSE(kept.isInFile());
    EXPECT_TRUE(kept.view() == bytes);
}

TEST_F(KeptBytesTest, FileThatEndsSoonerThanToldGivesWhatItHas) {
    folder_.write("a.dxf", "0\nEOF\n");
    const OpenFile file(::open(path().c_str(), O_RDONLY));
    for (const std::size_t large : {1, 100}) {
        EXPECT_EQ(KeptBytes::ofFile(file.descriptor(), 10, large).view(), "0\nEOF\n");
    }
    folder_.write("a.dxf", "");
    for (const std::size_t large : {1, 100}) {
        EXPECT_EQ(KeptBytes::ofFile(file.descriptor(), 10, large).view(), "");
    }
}

TEST_F(KeptBytesTest, WhatCannotBeReadIsTold) {
    const OpenFile folder(::open(folder_.text().c_str(), O_RDONLY));
    for (const std::size_t large : {1, 100}) {
        try {
            KeptBytes::ofFile(folder.descriptor(), 10, large);
            ADD_FAILURE() << "a folder was read";
        } catch (const std::system_error& failure) {
            EXPECT_EQ(failure.code(), std::errc::is_a_directory);
        }
    }
}

TEST_F(KeptBytesTest, MovedBytesGoAlong) {
    for (const std::size_t large : {1, 100}) {
        KeptBytes first = keep("0\nEOF\n", large);
        const KeptBytes second = std::move(first);
        EXPECT_EQ(second.view(), "0\nEOF\n");
    }
}

} // namespace
