#include "host/platform/SteppedProcess.h"
#include "SavedDrawing.h"

#include "database/AcDbLine.h"
#include "dxf/SaveDxf.h"
#include "platform/Encoding.h"
#include "platform/KeptBytes.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

using dxf_test::addEntity;
using dxf_test::fileBytes;
using dxf_test::LoadedDrawing;
using dxf_test::savedBytes;
using dxf_test::writeFile;

namespace {

const std::string bare =
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n10\n0\n11\n1\n0\nENDSEC\n0\nEOF\n";

/// A folder that is gone with all that is in it at the end of the test.
class SaveFiles : public testing::Test {
protected:
    SaveFiles() {
        fs::create_directory(folder_);
        writeFile(path_, bare);
    }
    ~SaveFiles() override {
        fs::permissions(folder_, fs::perms::owner_all);
        fs::remove_all(folder_);
    }

    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    static void addLines(const LoadedDrawing& drawing, int count) {
        for (int i = 0; i < count; ++i) {
            addEntity(drawing.database().modelSpaceId(),
                      new AcDbLine({static_cast<double>(i), 0.0, 0.0}, {0.0, 1.0, 0.0}));
        }
    }
    std::string refusal(const AcDbDatabase& database, const std::string& path) const {
        std::string error;
        EXPECT_FALSE(host_dxf::saveDrawing(database, path, error));
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        return error;
    }

    std::string folder_ = dxf_test::temporaryPath("folder");
    std::string path_ = folder_ + "/\xE7\xAE\xA1.dxf";
};

TEST_F(SaveFiles, DrawingIsSavedOntoItsOwnFileTwice) {
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    std::string error;
    for (int times = 1; times <= 2; ++times) {
        addLines(drawing, 1);
        ASSERT_TRUE(host_dxf::saveDrawing(drawing.database(), path_, error)) << error;
        EXPECT_EQ(LoadedDrawing::fromFile(path_).modelSpace().size(), 1U + times);
    }
    EXPECT_EQ(filesInFolder(), 1U);
}

/// Of so large a file nothing but the drawing's own copy is left when another program cuts it.
TEST_F(SaveFiles, LargeDrawingIsWholeAfterAnotherProgramCutItsFile) {
    std::string large;
    while (large.size() < platform_memory::KeptBytes::kLarge) {
        large += "999\n" + std::string(1000, 'x') + '\n';
    }
    large += "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n10\n0\n11\n1\n1001\nVLT\n1000\nW-1\n"
             "0\nENDSEC\n0\nEOF\n";
    writeFile(path_, large);
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    fs::resize_file(path_, 0);
    const AcDbLine* line = drawing.modelEntity<AcDbLine>(0);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(dxf_test::xdataLines(*line), (std::vector<std::wstring>{L"1001=VLT", L"1000=W-1"}));
    std::string error;
    ASSERT_TRUE(host_dxf::saveDrawing(drawing.database(), path_, error)) << error;
    EXPECT_TRUE(fileBytes(path_) == large);
}

TEST_F(SaveFiles, AccessRightsStay) {
    const auto rights = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(path_, rights);
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    addLines(drawing, 1);
    std::string error;
    ASSERT_TRUE(host_dxf::saveDrawing(drawing.database(), path_, error)) << error;
    EXPECT_EQ(fs::status(path_).permissions(), rights);
}

TEST_F(SaveFiles, SymbolicLinkStaysAndItsFileIsReplaced) {
    const std::string link = folder_ + "/link.dxf";
    fs::create_symlink(path_, link);
    const LoadedDrawing drawing = LoadedDrawing::fromFile(link);
    addLines(drawing, 1);
    std::string error;
    ASSERT_TRUE(host_dxf::saveDrawing(drawing.database(), link, error)) << error;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(LoadedDrawing::fromFile(path_).modelSpace().size(), 2U);
}

TEST_F(SaveFiles, LinkToNothingMakesTheFileItNames) {
    const std::string link = folder_ + "/link.dxf";
    fs::create_symlink("later.dxf", link);
    std::string error;
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    ASSERT_TRUE(host_dxf::saveDrawing(drawing.database(), link, error)) << error;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fileBytes(folder_ + "/later.dxf"), bare);
}

TEST_F(SaveFiles, FoldersMissingFoldersAndDevicesAreRefused) {
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    EXPECT_EQ(refusal(drawing.database(), folder_), folder_ + ": cannot save: Is a directory");
    const std::string missing = folder_ + "/no/a.dxf";
    EXPECT_EQ(refusal(drawing.database(), missing),
              missing + ": cannot save: No such file or directory");
    EXPECT_EQ(refusal(drawing.database(), "/dev/null"),
              "/dev/null: cannot save: not a regular file");
    EXPECT_EQ(filesInFolder(), 1U);
}

/// Runs `work` in a child process and gives its exit status, -1 when it was killed.
template<typename Work>
int inChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SaveFiles, FullDiskLeavesTheOldFileAndNothingElse) {
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    addLines(drawing, 1000);
    const int status = inChild([&] {
        // Files may not grow beyond this: the write fails as on a full disk.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::string error;
        const bool saved = host_dxf::saveDrawing(drawing.database(), path_, error);
        return !saved && error == path_ + ": cannot save: File too large" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(fileBytes(path_), bare);
    EXPECT_EQ(filesInFolder(), 1U) << "the temporary file is gone";
}

TEST_F(SaveFiles, FolderWithoutRightToWriteIsRefused) {
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    addLines(drawing, 1);
    fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec |
                                 fs::perms::others_read | fs::perms::others_exec);
    const int status = inChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) { // the superuser may write anywhere
            return 2;
        }
        std::string error;
        const bool saved = host_dxf::saveDrawing(drawing.database(), folder_ + "/new.dxf", error);
        return !saved && error == folder_ + "/new.dxf: cannot save: Permission denied" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(fileBytes(path_), bare);
}

TEST_F(SaveFiles, SaveKilledAtAnySystemCallLeavesTheOldFileOrTheNewOne) {
    const LoadedDrawing drawing = LoadedDrawing::fromFile(path_);
    addLines(drawing, 300);
    const std::string next = savedBytes(drawing.database());
    int oldOnes = 0;
    int newOnes = 0;
    const int kills = host_tests::killAtEachCall(
        [&] { writeFile(path_, bare); },
        [&] {
            std::string error;
            return host_dxf::saveDrawing(drawing.database(), path_, error) ? 0 : 1;
        },
        [&](int calls) {
            const std::string found = fileBytes(path_);
            oldOnes += found == bare ? 1 : 0;
            newOnes += found == next ? 1 : 0;
            EXPECT_TRUE(found == bare || found == next)
                << "killed after " << calls << " calls: " << found.size() << " bytes";
        });
    EXPECT_EQ(oldOnes + newOnes, kills);
    EXPECT_GT(oldOnes, 4) << "opening, writing, flushing and renaming come before";
    EXPECT_GT(newOnes, 0) << "the process's end comes after";
    EXPECT_TRUE(fileBytes(path_) == next) << "the save that nobody killed";
}

} // namespace
