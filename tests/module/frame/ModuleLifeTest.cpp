// The module in its host: loaded from its file, asked for networks, and unloaded. This program is
// not linked with the module, so that unloading really takes it out of the process.

#include "TKVltSearchModule18.h"

#include "module/support/AllocatedBytes.h"
#include "module/support/DrawingBuilder.h"

#include <dlfcn.h>
#include <memory>
#include <sstream>

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

TEST(ModuleLife, OnlyTheLoadMessageUnlocksAndDeclaresTheModule) {
    const LoadedModule module;
    const auto entryPoint = module.function<EntryPoint>("acrxEntryPoint");
    void* id = host::moduleId(kName);
    ASSERT_NE(id, nullptr);
    EXPECT_TRUE(linker()->lockApplication(id));
    EXPECT_TRUE(linker()->registerAppNotMDIAware(id));
    const host::HostRecorder recorder;
    for (const int message : {-1, 0, 2, 3, 4, 5, 8, 13, 15, 16, 1000}) {
        EXPECT_EQ(entryPoint(message, id), 0) << message;
        EXPECT_TRUE(linker()->isApplicationLocked(id)) << message;
        EXPECT_FALSE(linker()->isAppMDIAware(id)) << message;
    }
    EXPECT_TRUE(recorder.lines().empty());
    EXPECT_EQ(entryPoint(1, id), 0);
    EXPECT_FALSE(linker()->isApplicationLocked(id));
    EXPECT_TRUE(linker()->isAppMDIAware(id));
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

/// What one piece of storage left behind in each of forty rounds would come to at least, by the
/// smallest amount that the system counts. The system's own book-keeping, where a piece that is
/// used again may be a little larger than before, stays far below: it does not grow with the
/// rounds.
constexpr std::ptrdiff_t kOnePieceARound = 40 * 16;

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

/// What the sanitizer's run-time library itself keeps of libraries that come and go. What a library
/// leaves behind by its own attaching would be in it too, but that the sanitizer's search for leaks
/// tells at the end of this program; other builds have no such share.
std::ptrdiff_t growthByMappingAlone() {
#if defined(__SANITIZE_ADDRESS__)
    return growthOfFortyRounds([] { dlclose(dlopen(kPath.c_str(), RTLD_NOW | RTLD_LOCAL)); });
#else
    return 0;
#endif
}

TEST(ModuleLife, FiftyRoundsLeaveNothingBehind) {
    DrawingBuilder drawing;
    const AcDbObjectId root = addShortSewer(drawing);
    // A class of this program, which stands in the host's own list when the module is loaded.
    CRuntimeClass own = {"Own", sizeof(CObject), 1, nullptr, &CObject::GetThisClass, nullptr};
    const AFX_CLASSINIT registration(&own);
    const CRuntimeClass* others = own.m_pNextClass;
    const host::LiveCounts before = host::liveCounts();
    EXPECT_GT(before.classes, 0U);
    const HINSTANCE resource = AfxGetResourceHandle();
    const std::ptrdiff_t growth = growthOfFortyRounds([&] {
        {
            const LoadedModule module;
            const std::unique_ptr<SearchObject> object = module.search(root);
            EXPECT_EQ(gravity(object).wells.GetSize(), 2);
        }
        EXPECT_EQ(host::liveCounts(), before);
        EXPECT_EQ(AfxGetModuleState()->m_classList.GetHead(), &own);
        EXPECT_EQ(own.m_pNextClass, others);
        EXPECT_FALSE(isMapped());
    });
    EXPECT_EQ(AfxGetResourceHandle(), resource);
    EXPECT_LT(growth - growthByMappingAlone(), kOnePieceARound);
    EXPECT_EQ(host::liveCounts(), before);
}

/// The fields of a network as text, each number in full.
std::string textOf(const GravitySearchObject& network) {
    std::ostringstream text;
    text << std::hexfloat << network.rootWell << ' ' << network.wells.GetSize() << '\n';
    const auto point = [&](const AcGePoint3d& p) {
        text << p.x << ',' << p.y << ',' << p.z << ' ';
    };
    const auto words = [&](const CString& words) {
        text << '[' << host_text::toUtf8(static_cast<const wchar_t*>(words)) << "] ";
    };
    for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
        const Well& well = network.wells[i];
        text << well.id.asOldId() << ' ' << well.nodeEntity.asOldId() << ' ' << well.isWell << ' '
             << well.nodeRadius << ' ' << well.radius << ' ' << well.inSeg << ' '
             << well.outSegs.GetSize() << ' ' << well.valid << ' ';
        point(well.nodePoint);
        point(well.position);
        for (const CString* each :
             {&well.layer, &well.systemName, &well.note, &well.handle, &well.number}) {
            words(*each);
        }
        text << '\n';
    }
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        const GravitySeg& seg = network.segs[i];
        for (int k = 0; k < seg.pipeIds.length(); ++k) {
            text << seg.pipeIds[k].asOldId() << ' ';
        }
        text << seg.startWell << ' ' << seg.endWell << ' ' << seg.startEntity.asOldId() << ' '
             << seg.endEntity.asOldId() << ' ' << seg.startElevation << ' ' << seg.endElevation
             << ' ' << seg.slope << ' ' << seg.diameter << ' ' << seg.flowReversed << ' '
             << seg.length << ' ';
        for (const AcGePoint3d* each : {&seg.startPoint, &seg.endPoint, &seg.annotatePoint}) {
            point(*each);
        }
        for (const CString* each : {&seg.flowText, &seg.material, &seg.systemName}) {
            words(*each);
        }
        text << '\n';
    }
    return text.str();
}

TEST(ModuleLife, AHeldResultOutlivesItsDocumentAndOthers) {
    DrawingBuilder first;
    const AcDbObjectId firstRoot = addShortSewer(first);
    const LoadedModule module;
    const std::unique_ptr<SearchObject> held = module.search(firstRoot);
    const std::string before = textOf(gravity(held));
    // Two wells and the pipe between them: the root at the origin, the other ten units away.
    EXPECT_EQ(gravity(held).wells.GetSize(), 2);
    EXPECT_EQ(gravity(held).wells[0].nodeEntity, firstRoot);
    EXPECT_EQ(gravity(held).wells[1].nodePoint, AcGePoint3d(10, 0, 0));
    EXPECT_NE(before.find("[污水]"), std::string::npos);
    {
        DrawingBuilder second;
        const std::unique_ptr<SearchObject> other = module.search(addShortSewer(second));
        const std::string ofSecond = textOf(gravity(other));
        EXPECT_NE(ofSecond, before) << "ids of another drawing";
        // The one in the background goes; the one in front stays as it is.
        first.close();
        EXPECT_EQ(acDocManager()->documentCount(), 1);
        EXPECT_EQ(textOf(gravity(held)), before);
        EXPECT_EQ(textOf(gravity(other)), ofSecond);
        second.close();
        EXPECT_EQ(acDocManager()->documentCount(), 0);
        EXPECT_EQ(textOf(gravity(other)), ofSecond);
    }
    EXPECT_EQ(textOf(gravity(held)), before);
    // Its ids are still values, and open nothing.
    AcDbEntity* entity = nullptr;
    EXPECT_NE(acdbOpenObject(entity, gravity(held).wells[0].nodeEntity, AcDb::kForRead), Acad::eOk);
}

TEST(ModuleLife, ClosingAnotherDocumentLeavesAHeldResultAsItIs) {
    DrawingBuilder first;
    const AcDbObjectId root = addShortSewer(first);
    const LoadedModule module;
    const std::unique_ptr<SearchObject> held = module.search(root);
    const std::string before = textOf(gravity(held));
    {
        DrawingBuilder second;
        addShortSewer(second);
    }
    EXPECT_EQ(acDocManager()->documentCount(), 1);
    EXPECT_EQ(textOf(gravity(held)), before);
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
