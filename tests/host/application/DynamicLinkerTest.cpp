#include "EmbeddedHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using Names = std::vector<std::string>;

std::string fileOf(const std::string& name) {
    return std::string(TKVLT_TEST_MODULES) + "/" + name;
}

AcRxDynamicLinker* linker() {
    return AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"));
}

bool isMapped(const std::string& name) {
    void* handle = dlopen(fileOf(name).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

/// The id under which a loaded test module was called last.
void* appIdOf(const std::string& name) {
    void* handle = dlopen(fileOf(name).c_str(), RTLD_NOW | RTLD_NOLOAD);
    void* id = *static_cast<void**>(dlsym(handle, "testAppId"));
    dlclose(handle);
    return id;
}

class DynamicLinkerTest : public ::testing::Test {
protected:
    DynamicLinkerTest() : before_(host::liveCounts()) {}
    ~DynamicLinkerTest() override {
        while (acDocManager()->curDocument() != nullptr) {
            host::closeDocument(acDocManager()->curDocument());
        }
        EXPECT_EQ(host::loadedModules(), Names{});
        EXPECT_EQ(host::liveCounts(), before_);
    }

    bool load(const std::string& name) { return host::loadModule(fileOf(name), error_); }
    bool unload(const std::string& name) { return host::unloadModule(name, error_); }

    std::string error_;
    host::LiveCounts before_;
};

TEST_F(DynamicLinkerTest, TheSystemRegistryNamesTheLinker) {
    ASSERT_NE(linker(), nullptr);
    EXPECT_STREQ(ACRX_DYNAMIC_LINKER, L"DynamicLinker");
    EXPECT_TRUE(acrxSysRegistry()->has(L"DynamicLinker"));
    EXPECT_EQ(acrxSysRegistry()->at(L"dynamiclinker"), nullptr);
    EXPECT_EQ(AcRxDynamicLinker::cast(acrxSysRegistry()), nullptr);
}

TEST_F(DynamicLinkerTest, LoadingMapsAsksTheVersionAndSendsTheLoadMessage) {
    const host::HostRecorder recorder;
    ASSERT_TRUE(load("test_plain_module.so")) << error_;
    EXPECT_TRUE(isMapped("test_plain_module.so"));
    EXPECT_EQ(host::loadedModules(), Names{"test_plain_module.so"});
    ASSERT_TRUE(unload("test_plain_module.so")) << error_;
    EXPECT_FALSE(isMapped("test_plain_module.so"));
    EXPECT_EQ(recorder.lines(),
              (std::vector<std::wstring>{
                  L"load test_plain_module.so", L"api version test_plain_module.so 0x120000",
                  L"unlock application test_plain_module.so", L"mdi aware test_plain_module.so",
                  L"entry test_plain_module.so 1 = 0", L"entry test_plain_module.so 2 = 0",
                  L"unload test_plain_module.so", L"unmapped test_plain_module.so"}));
}

TEST_F(DynamicLinkerTest, AModuleIsUnloadedByItsPathToo) {
    ASSERT_TRUE(load("test_plain_module.so"));
    EXPECT_TRUE(unload("/elsewhere/test_plain_module.so")) << error_;
}

TEST_F(DynamicLinkerTest, AFileThatCannotBeMappedIsRefusedWithTheCause) {
    EXPECT_FALSE(load("missing.so"));
    EXPECT_EQ(error_.find(fileOf("missing.so") + ": cannot be loaded: "), 0U);
    EXPECT_NE(error_.find("No such file"), std::string::npos);
}

TEST_F(DynamicLinkerTest, ALibraryWithoutEntryPointsIsRefusedAndUnmapped) {
    EXPECT_FALSE(load("test_no_module.so"));
    EXPECT_EQ(error_,
              fileOf("test_no_module.so") + ": cannot be loaded: it is no module of this host");
    EXPECT_FALSE(isMapped("test_no_module.so"));
}

TEST_F(DynamicLinkerTest, AnotherMajorVersionIsRefusedBeforeAnyMessage) {
    const host::HostRecorder recorder;
    EXPECT_FALSE(load("test_old_module.so"));
    EXPECT_EQ(error_, fileOf("test_old_module.so") +
                          ": cannot be loaded: it was built for version 0x110000 of the "
                          "programming interface, and this is 0x120000");
    EXPECT_EQ(recorder.linesOf(L"entry").size(), 0U);
    EXPECT_FALSE(isMapped("test_old_module.so"));
}

TEST_F(DynamicLinkerTest, AnotherMinorVersionIsWelcome) {
    EXPECT_TRUE(load("test_minor_module.so")) << error_;
    EXPECT_TRUE(unload("test_minor_module.so"));
}

TEST_F(DynamicLinkerTest, AModuleThatAnswersWithAnErrorIsUnloaded) {
    const host::HostRecorder recorder;
    EXPECT_FALSE(load("test_failing_module.so"));
    EXPECT_EQ(error_, "test_failing_module.so: cannot be loaded: it reports an error");
    EXPECT_EQ(recorder.linesOf(L"entry"),
              std::vector<std::wstring>{L"entry test_failing_module.so 1 = 3"});
    EXPECT_FALSE(isMapped("test_failing_module.so"));
}

TEST_F(DynamicLinkerTest, ALoadedModuleIsNotLoadedAgain) {
    ASSERT_TRUE(load("test_plain_module.so"));
    const host::HostRecorder recorder;
    EXPECT_FALSE(load("test_plain_module.so"));
    EXPECT_EQ(error_, fileOf("test_plain_module.so") + ": is loaded already");
    EXPECT_TRUE(recorder.lines().empty());
    EXPECT_TRUE(unload("test_plain_module.so"));
    EXPECT_FALSE(unload("test_plain_module.so"));
    EXPECT_EQ(error_, "test_plain_module.so: is not loaded");
}

TEST_F(DynamicLinkerTest, AModuleIsLockedUntilItUnlocksItself) {
    ASSERT_TRUE(load("test_locked_module.so"));
    const host::HostRecorder recorder;
    EXPECT_TRUE(linker()->isApplicationLocked(L"test_locked_module.so"));
    EXPECT_FALSE(unload("test_locked_module.so"));
    EXPECT_EQ(error_, "test_locked_module.so: cannot be unloaded: it is locked");
    EXPECT_TRUE(isMapped("test_locked_module.so"));
    EXPECT_EQ(recorder.linesOf(L"entry").size(), 0U);
    EXPECT_TRUE(linker()->unlockApplication(appIdOf("test_locked_module.so")));
    EXPECT_FALSE(linker()->isApplicationLocked(L"test_locked_module.so"));
    EXPECT_TRUE(unload("test_locked_module.so")) << error_;
}

TEST_F(DynamicLinkerTest, AModuleCanBeLockedAgain) {
    ASSERT_TRUE(load("test_plain_module.so"));
    void* id = appIdOf("test_plain_module.so");
    EXPECT_FALSE(linker()->isApplicationLocked(id));
    EXPECT_TRUE(linker()->lockApplication(id));
    EXPECT_TRUE(linker()->isApplicationLocked(id));
    EXPECT_FALSE(unload("test_plain_module.so"));
    EXPECT_TRUE(linker()->unlockApplication(id));
    EXPECT_TRUE(unload("test_plain_module.so"));
}

TEST_F(DynamicLinkerTest, UnknownIdsAndNamesAreRefused) {
    int stranger = 0;
    EXPECT_FALSE(linker()->unlockApplication(&stranger));
    EXPECT_FALSE(linker()->lockApplication(nullptr));
    EXPECT_FALSE(linker()->registerAppMDIAware(&stranger));
    EXPECT_FALSE(linker()->isAppMDIAware(L"nobody.so"));
    EXPECT_FALSE(linker()->isApplicationLocked(L"nobody.so"));
}

TEST_F(DynamicLinkerTest, AModuleOfOneDocumentIsNotLoadedBesideTwo) {
    host::newDocument();
    host::newDocument();
    const host::HostRecorder recorder;
    EXPECT_FALSE(load("test_single_module.so"));
    EXPECT_EQ(error_, "test_single_module.so: cannot be loaded: it works with one document only, "
                      "and several are open");
    // It has been initialised before it could be known, so it is told to end.
    EXPECT_EQ(recorder.linesOf(L"entry"),
              (std::vector<std::wstring>{L"entry test_single_module.so 1 = 0",
                                         L"entry test_single_module.so 2 = 0"}));
    EXPECT_FALSE(isMapped("test_single_module.so"));
    EXPECT_TRUE(load("test_plain_module.so")) << error_;
    EXPECT_TRUE(unload("test_plain_module.so"));
}

TEST_F(DynamicLinkerTest, BesideAModuleOfOneDocumentNoSecondOneIsOpened) {
    ASSERT_TRUE(load("test_single_module.so"));
    EXPECT_FALSE(linker()->isAppMDIAware(L"test_single_module.so"));
    ASSERT_NE(host::newDocument(), nullptr);
    EXPECT_EQ(host::newDocument(), nullptr);
    std::string error;
    EXPECT_EQ(host::openDocument(TKVLT_EXAMPLES_DIR "/town.dxf", error), nullptr);
    EXPECT_EQ(error, TKVLT_EXAMPLES_DIR "/town.dxf: cannot be opened: the module "
                                        "test_single_module.so works with one document only");
    EXPECT_EQ(acDocManager()->documentCount(), 1);
    // As soon as it declares that it can, a second one opens; and it may take that back.
    void* id = appIdOf("test_single_module.so");
    EXPECT_TRUE(linker()->registerAppMDIAware(id));
    EXPECT_TRUE(linker()->isAppMDIAware(id));
    EXPECT_NE(host::newDocument(), nullptr);
    EXPECT_TRUE(linker()->registerAppNotMDIAware(id));
    EXPECT_EQ(host::newDocument(), nullptr);
    host::closeDocument(acDocManager()->curDocument());
    EXPECT_TRUE(unload("test_single_module.so"));
    EXPECT_NE(host::newDocument(), nullptr);
}

TEST_F(DynamicLinkerTest, AModuleOfOneDocumentIsNotUnloadedBesideTwo) {
    ASSERT_TRUE(load("test_plain_module.so"));
    host::newDocument();
    host::newDocument();
    EXPECT_TRUE(linker()->registerAppNotMDIAware(appIdOf("test_plain_module.so")));
    const host::HostRecorder recorder;
    EXPECT_FALSE(unload("test_plain_module.so"));
    EXPECT_EQ(error_, "test_plain_module.so: cannot be unloaded: it works with one document only, "
                      "and several are open");
    EXPECT_TRUE(recorder.lines().empty());
    host::closeDocument(acDocManager()->curDocument());
    EXPECT_TRUE(unload("test_plain_module.so")) << error_;
}

TEST_F(DynamicLinkerTest, EntriesOfALinkedLibraryAreNotTheFilesOwn) {
    for (const std::string name :
         {"test_half_module.so", "test_borrowing_module.so", "test_half_borrowing_module.so"}) {
        const host::HostRecorder recorder;
        EXPECT_FALSE(load(name));
        EXPECT_EQ(error_, fileOf(name) + ": cannot be loaded: it is no module of this host");
        EXPECT_EQ(recorder.linesOf(L"entry").size(), 0U) << name;
        EXPECT_EQ(recorder.linesOf(L"api").size(), 0U) << name;
        EXPECT_FALSE(isMapped(name));
    }
    EXPECT_TRUE(load("test_shared_module.so")) << error_;
    EXPECT_TRUE(unload("test_shared_module.so")) << error_;
}

TEST_F(DynamicLinkerTest, NullAndEmptyNamesAreThoseOfNoModule) {
    const ACHAR* none = nullptr;
    for (const ACHAR* name : {none, L""}) {
        EXPECT_FALSE(linker()->loadModule(name, false));
        EXPECT_EQ(linker()->lastError(), "(no name): cannot be loaded");
        EXPECT_FALSE(linker()->unloadModule(name));
        EXPECT_EQ(linker()->lastError(), "(no name): is not loaded");
        EXPECT_FALSE(linker()->isApplicationLocked(name));
        EXPECT_FALSE(linker()->isAppMDIAware(name));
    }
    const std::string noText;
    EXPECT_FALSE(host::loadModule(noText, error_));
    EXPECT_EQ(acrxSysRegistry()->at(none), nullptr);
    EXPECT_FALSE(acrxSysRegistry()->has(none));
    EXPECT_EQ(acrxSysRegistry()->atPut(none, linker()), nullptr);
    EXPECT_FALSE(acrxSysRegistry()->has(none));
    EXPECT_EQ(acrxSysRegistry()->remove(none), nullptr);
    EXPECT_EQ(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER), linker());
}

TEST_F(DynamicLinkerTest, AModuleThatThrowsAtItsLoadIsUnmapped) {
    const host::HostRecorder recorder;
    EXPECT_FALSE(load("test_load_throws_module.so"));
    EXPECT_EQ(error_, "test_load_throws_module.so: cannot be loaded: it fails with an exception: "
                      "trouble");
    EXPECT_EQ(host::loadedModules(), Names{});
    EXPECT_FALSE(isMapped("test_load_throws_module.so"));
    EXPECT_EQ(recorder.linesOf(L"unmapped").size(), 1U);
    EXPECT_FALSE(load("test_version_throws_module.so"));
    EXPECT_EQ(error_, fileOf("test_version_throws_module.so") +
                          ": cannot be loaded: it fails with an exception");
    EXPECT_FALSE(isMapped("test_version_throws_module.so"));
}

TEST_F(DynamicLinkerTest, AModuleThatThrowsAtItsUnloadIsGoneNevertheless) {
    ASSERT_TRUE(load("test_unload_throws_module.so")) << error_;
    EXPECT_FALSE(unload("test_unload_throws_module.so"));
    EXPECT_EQ(error_,
              "test_unload_throws_module.so: is unloaded, but it fails with an exception: trouble");
    EXPECT_EQ(host::loadedModules(), Names{});
    EXPECT_FALSE(isMapped("test_unload_throws_module.so"));
}

TEST_F(DynamicLinkerTest, AModuleNeitherUnloadsNorLoadsItselfWhileItHandlesAMessage) {
    const host::HostRecorder recorder;
    ASSERT_TRUE(load("test_self_module.so")) << error_;
    ASSERT_TRUE(unload("test_self_module.so")) << error_;
    const std::wstring refused = L"test_self_module.so: ";
    const std::wstring unload = refused + L"cannot be unloaded: it is handling a message";
    const std::wstring load = refused + L"is loaded already";
    EXPECT_EQ(recorder.linesOf(L"test_self_module.so:"),
              (std::vector<std::wstring>{unload, load, unload, load}));
    EXPECT_TRUE(recorder.linesOf(L"done").empty());
    EXPECT_FALSE(isMapped("test_self_module.so"));
}

/// A folder of its own, removed at the end.
class Folder {
public:
    Folder() {
        std::string name = std::filesystem::temp_directory_path() / "moduleXXXXXX";
        path_ = mkdtemp(name.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }
    std::filesystem::path operator/(const char* name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

TEST_F(DynamicLinkerTest, AnotherNameOfALoadedFileIsLoadedAlready) {
    const Folder folder;
    const std::string link = folder / "link.so";
    std::filesystem::create_symlink(fileOf("test_plain_module.so"), link);
    ASSERT_TRUE(load("test_plain_module.so"));
    const host::HostRecorder recorder;
    EXPECT_FALSE(host::loadModule(link, error_));
    EXPECT_EQ(error_, link + ": is loaded already");
    EXPECT_TRUE(recorder.lines().empty());
    EXPECT_EQ(host::loadedModules(), Names{"test_plain_module.so"});
    EXPECT_TRUE(unload("test_plain_module.so"));
    EXPECT_FALSE(isMapped("test_plain_module.so"));
}

TEST_F(DynamicLinkerTest, FilesThatAreNoLibrariesAreRefused) {
    const Folder folder;
    const std::string text = folder / "text.so";
    std::ofstream(text) << "This is no library, though its name says so.\n";
    const auto whole = std::filesystem::file_size(fileOf("test_plain_module.so"));
    Names refused{text, folder / "."};
    for (const auto size :
         {std::uintmax_t{0}, std::uintmax_t{3}, std::uintmax_t{64}, std::uintmax_t{900},
          std::uintmax_t{4096}, whole / 4, whole / 2, whole - 1}) {
        refused.push_back(folder / ("cut" + std::to_string(size) + ".so").c_str());
        std::filesystem::copy_file(fileOf("test_plain_module.so"), refused.back());
        std::filesystem::resize_file(refused.back(), size);
    }
    for (const std::string& path : refused) {
        EXPECT_FALSE(host::loadModule(path, error_)) << path;
        EXPECT_EQ(error_.find(path + ": cannot be loaded: "), 0U) << error_;
    }
    EXPECT_EQ(host::loadedModules(), Names{});
}

} // namespace
