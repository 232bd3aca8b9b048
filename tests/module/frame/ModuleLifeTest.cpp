// The module in its host: loaded from its file, asked for networks, and unloaded. This program is
// not linked with the module, so that unloading really takes it out of the process.

#include "TKVltSearchModule18.h"

#include "module/support/DrawingBuilder.h"

#include <dlfcn.h>
#include <malloc.h>
#include <memory>
#if defined(__SANITIZE_ADDRESS__)
/// Of the sanitizer's own run-time library, whose headers not every system installs.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace module_tests {
namespace {

const std::string kPath = TKVLT_MODULE_LIBRARY;
const std::string kName = kPath.substr(kPath.find_last_of('/') + 1);
const std::wstring kWide = host_text::fromUtf8(kName);

using Lines = std::vector<std::wstring>;
using Search = int (*)(SearchObject*&, AcDbObjectId&, AcDbObjectId&, AcGePoint3d);
using EntryPoint = int (*)(int, void*);
using ApiVersion = int (*)();

bool isMapped() {
    void* handle = dlopen(kPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

std::size_t allocatedBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

AcRxDynamicLinker* linker() {
    return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

/// The module, loaded through the dynamic linker for as long as this lives.
class LoadedModule {
public:
    LoadedModule() {
        std::string error;
        EXPECT_TRUE(host::loadModule(kPath, error)) << error;
        handle_ = dlopen(kPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
        EXPECT_NE(handle_, nullptr);
        dlclose(handle_); // the linker holds it
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule() {
        std::string error;
        EXPECT_TRUE(host::unloadModule(kName, error)) << error;
    }

    template<class Function>
    Function function(const char* name) const {
        auto found = reinterpret_cast<Function>(dlsym(handle_, name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    std::unique_ptr<SearchObject> search(AcDbObjectId start) const {
        SearchObject* object = nullptr;
        AcDbObjectId none;
        const auto search = function<Search>(
            "_Z20GetSearchInformationRP12SearchObjectR12AcDbObjectIdS3_11AcGePoint3d");
        EXPECT_EQ(search(object, start, none, AcGePoint3d()), 1);
        return std::unique_ptr<SearchObject>(object);
    }

private:
    void* handle_ = nullptr;
};

/// The network of a search, read as a sibling module reads it.
const GravitySearchObject& gravity(const std::unique_ptr<SearchObject>& object) {
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "GravitySearchObject");
    return static_cast<const GravitySearchObject&>(*object);
}

/// Two wells ten units apart and the pipe between them, in whatever drawing is current.
AcDbObjectId addShortSewer(DrawingBuilder& drawing) {
    const AcDbObjectId root = drawing.addWell({0, 0, 0});
    drawing.addWell({10, 0, 0});
    drawing.addPipe({0.5, 0, 0}, {9.5, 0, 0});
    return root;
}

TEST(ModuleLife, LoadingKeepsTheOrderOfItsSteps) {
    const host::HostRecorder recorder;
    const LoadedModule module;
    EXPECT_EQ(recorder.lines(), (Lines{
                                    L"load " + kWide,
                                    L"classes aside",           // the raw entry hook
                                    L"reactor added",           // static constructors
                                    L"extension init " + kWide, // the entry function with reason 1
                                    L"extension library " + kWide, //
                                    L"ui library ready",           //
                                    L"api version " + kWide + L" 0x120000",
                                    L"unlock application " + kWide, // the load message
                                    L"mdi aware " + kWide,          //
                                    L"entry " + kWide + L" 1 = 0",
                                }));
    EXPECT_FALSE(linker()->isApplicationLocked(kWide.c_str()));
    EXPECT_TRUE(linker()->isAppMDIAware(kWide.c_str()));
}

TEST(ModuleLife, UnloadingKeepsTheOrderOfItsSteps) {
    auto module = std::make_unique<LoadedModule>();
    const host::HostRecorder recorder;
    module.reset();
    EXPECT_EQ(recorder.lines(), (Lines{
                                    L"entry " + kWide + L" 2 = 0",
                                    L"unload " + kWide,
                                    L"extension term " + kWide, // the entry function, reason 0
                                    L"extension library gone " + kWide, //
                                    L"reactor removed",                 // static destructors
                                    L"unmapped " + kWide,
                                }));
    EXPECT_FALSE(isMapped());
}

TEST(ModuleLife, TheRecordOfTheLibraryIsTheModulesOwn) {
    const LoadedModule module;
    const CDynLinkLibrary* library = AfxGetModuleState()->m_pFirstLibrary;
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(host::fileNameOf(library->m_hModule), kName);
    EXPECT_EQ(library->m_bSystem, FALSE);
    // The result classes have dynamic identity without dynamic creation, so none registers.
    EXPECT_EQ(library->m_classList.GetCount(), 0U);
}

TEST(ModuleLife, TheVersionIsEighteen) {
    const LoadedModule module;
    EXPECT_EQ(module.function<ApiVersion>("acrxGetApiVersion")(), 18 * 65536);
}

TEST(ModuleLife, AnUnknownMessageReturnsZeroAndHasNoEffect) {
    const LoadedModule module;
    const auto entryPoint = module.function<EntryPoint>("acrxEntryPoint");
    const host::LiveCounts before = host::liveCounts();
    const host::HostRecorder recorder;
    int stranger = 0;
    for (const int message : {-1, 0, 2, 3, 4, 5, 8, 13, 15, 16, 1000}) {
        EXPECT_EQ(entryPoint(message, &stranger), 0) << message;
        EXPECT_EQ(entryPoint(message, nullptr), 0) << message;
    }
    EXPECT_TRUE(recorder.lines().empty());
    EXPECT_EQ(host::liveCounts(), before);
}

TEST(ModuleLife, TheLoadMessageTakesTheIdAsItComes) {
    const LoadedModule module;
    const host::HostRecorder recorder;
    int stranger = 0;
    // The linker knows no such application, which the module does not look at.
    EXPECT_EQ(module.function<EntryPoint>("acrxEntryPoint")(1, &stranger), 0);
    EXPECT_TRUE(recorder.lines().empty());
}

TEST(ModuleLife, ClosingADocumentHasNoVisibleEffect) {
    const auto linesOfAClose = [] {
        AcApDocument* document = host::newDocument();
        const host::HostRecorder recorder;
        host::closeDocument(document);
        return recorder.lines();
    };
    const Lines without = linesOfAClose();
    const LoadedModule module;
    const host::LiveCounts before = host::liveCounts();
    EXPECT_EQ(linesOfAClose(), without);
    EXPECT_EQ(host::liveCounts(), before);
    EXPECT_EQ(host::loadedModules(), std::vector<std::string>{kName});
}

TEST(ModuleLife, ASearchWorksAsSoonAsTheModuleIsLoaded) {
    DrawingBuilder drawing;
    const AcDbObjectId root = addShortSewer(drawing);
    const LoadedModule module;
    const std::unique_ptr<SearchObject> object = module.search(root);
    EXPECT_EQ(gravity(object).wells.GetSize(), 2);
    EXPECT_EQ(gravity(object).segs.GetSize(), 1);
    EXPECT_EQ(gravity(object).rootWell, 0);
}

/// By how much the storage in use grows over the last forty of fifty rounds; what is kept for the
/// whole process has been made in the first ten.
template<class Round>
std::ptrdiff_t growthOfFortyRounds(Round round) {
    std::size_t bytes = 0;
    for (int i = 0; i < 50; ++i) {
        if (i == 10) {
            bytes = allocatedBytes();
        }
        round();
    }
    return static_cast<std::ptrdiff_t>(allocatedBytes() - bytes);
}

TEST(ModuleLife, FiftyRoundsLeaveNothingBehind) {
    DrawingBuilder drawing;
    const AcDbObjectId root = addShortSewer(drawing);
    const host::LiveCounts before = host::liveCounts();
    const HINSTANCE resource = AfxGetResourceHandle();
    const std::ptrdiff_t growth = growthOfFortyRounds([&] {
        {
            const LoadedModule module;
            const std::unique_ptr<SearchObject> object = module.search(root);
            EXPECT_EQ(gravity(object).wells.GetSize(), 2);
        }
        EXPECT_EQ(host::liveCounts(), before);
        EXPECT_FALSE(isMapped());
    });
    EXPECT_EQ(AfxGetResourceHandle(), resource);
    // What the system's own list of exit functions takes when the file is mapped and unmapped.
    const std::ptrdiff_t ofTheSystem =
        growthOfFortyRounds([] { dlclose(dlopen(kPath.c_str(), RTLD_NOW)); });
    // One piece of storage left behind in each round would be twice this much.
    constexpr std::ptrdiff_t kSmallestPiece = 16;
    EXPECT_LT(growth, ofTheSystem + 40 * kSmallestPiece);
    EXPECT_EQ(host::liveCounts(), before);
}

TEST(ModuleLife, SearchesInTwoDocumentsDoNotTouchEachOther) {
    DrawingBuilder first;
    const AcDbObjectId firstRoot = addShortSewer(first);
    AcApDocument* firstDocument = acDocManager()->curDocument();
    const LoadedModule module;
    const std::unique_ptr<SearchObject> before = module.search(firstRoot);
    {
        DrawingBuilder second; // three wells in a row
        const AcDbObjectId secondRoot = addShortSewer(second);
        second.addWell({20, 0, 0});
        second.addPipe({10.5, 0, 0}, {19.5, 0, 0});
        EXPECT_EQ(acDocManager()->documentCount(), 2);
        EXPECT_EQ(gravity(module.search(secondRoot)).wells.GetSize(), 3);
        // Back in the first one, and in the second again.
        acDocManager()->activateDocument(firstDocument);
        EXPECT_EQ(gravity(module.search(firstRoot)).wells.GetSize(), 2);
        acDocManager()->activateDocument(acDocManager()->document(&second.database()));
        EXPECT_EQ(gravity(module.search(secondRoot)).segs.GetSize(), 2);
    }
    // The second drawing took its settings with it.
    EXPECT_EQ(acDocManager()->curDocument(), firstDocument);
    EXPECT_EQ(acDocManager()->documentCount(), 1);
    EXPECT_EQ(gravity(before).wells.GetSize(), 2);
    siblings::setSystemPath(first.folder().text());
    first.setLengthMode(0); // sets all of them again
    EXPECT_EQ(gravity(module.search(firstRoot)).wells.GetSize(), 2);
}

} // namespace
} // namespace module_tests
