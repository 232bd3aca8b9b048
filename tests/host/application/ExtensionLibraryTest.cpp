#include "EmbeddedHost.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

const std::string kClassLibrary = std::string(TKVLT_TEST_MODULES) + "/test_class_library.so";
const std::string kCareless = std::string(TKVLT_TEST_MODULES) + "/test_careless_library.so";
const std::string kLibrary = std::string(TKVLT_TEST_MODULES) + "/test_extension_library.so";

/// A class of the host's own, registered for the length of a test.
class ExtensionLibraryTest : public ::testing::Test {
protected:
    ExtensionLibraryTest() : before_(host::liveCounts()) { AfxClassInit(&own_); }
    ~ExtensionLibraryTest() override {
        AfxGetModuleState()->m_classList.Remove(&own_);
        EXPECT_EQ(host::liveCounts(), before_);
    }

    CRuntimeClass own_ = {"Own", sizeof(CObject), 1, nullptr, &CObject::GetThisClass, nullptr};
    host::LiveCounts before_;
};

TEST_F(ExtensionLibraryTest, AttachAndDetachKeepTheirOrder) {
    const host::HostRecorder recorder;
    void* handle = dlopen(kLibrary.c_str(), RTLD_NOW);
    ASSERT_NE(handle, nullptr) << dlerror();
    EXPECT_EQ(recorder.lines(),
              (std::vector<std::wstring>{L"classes aside", L"entry function 1",
                                         L"extension init test_extension_library.so",
                                         L"extension library test_extension_library.so"}));
    dlclose(handle);
    EXPECT_EQ(dlopen(kLibrary.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    const std::vector<std::wstring> end(recorder.lines().begin() + 4, recorder.lines().end());
    EXPECT_EQ(end, (std::vector<std::wstring>{
                       L"entry function 0", L"extension term test_extension_library.so",
                       L"extension library gone test_extension_library.so"}));
}

TEST_F(ExtensionLibraryTest, ClassesAreGatheredByTheLibraryAndNotByTheHost) {
    void* handle = dlopen(kLibrary.c_str(), RTLD_NOW);
    ASSERT_NE(handle, nullptr) << dlerror();
    const AFX_MODULE_STATE* state = AfxGetModuleState();
    const CDynLinkLibrary* library = state->m_pFirstLibrary;
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->m_classList.GetCount(), 1U);
    EXPECT_STREQ(library->m_classList.GetHead()->m_lpszClassName, "Dragon");
    // Gone before the library is: its operations are the library's code.
    EXPECT_NE(std::unique_ptr<CObject>(library->m_classList.GetHead()->CreateObject()), nullptr);
    EXPECT_EQ(library->m_factoryList.GetCount(), 1U);
    EXPECT_EQ(library->m_bSystem, FALSE);
    EXPECT_EQ(library->m_hModule, host::instanceOf(library->m_classList.GetHead()));
    EXPECT_EQ(library->m_hResource, library->m_hModule);
    // The host's own list is as it was, and whole again.
    EXPECT_EQ(state->m_classList.GetHead(), &own_);
    EXPECT_EQ(state->m_factoryList.GetCount(), 0U);
    EXPECT_TRUE(state->m_listsAside.empty());
    dlclose(handle);
}

TEST_F(ExtensionLibraryTest, TheDetachLeavesNothingBehind) {
    const host::LiveCounts loadedNone = host::liveCounts();
    for (int i = 0; i < 3; ++i) {
        void* handle = dlopen(kLibrary.c_str(), RTLD_NOW);
        ASSERT_NE(handle, nullptr) << dlerror();
        EXPECT_EQ(host::liveCounts().extensionLibraries, loadedNone.extensionLibraries + 1);
        EXPECT_EQ(host::liveCounts().classes, loadedNone.classes + 1);
        dlclose(handle);
        EXPECT_EQ(host::liveCounts(), loadedNone);
    }
}

TEST_F(ExtensionLibraryTest, ARecordIsInitialisedOnce) {
    AFX_EXTENSION_MODULE record{};
    EXPECT_EQ(AfxInitExtensionModule(record, nullptr), FALSE);
    EXPECT_EQ(record.bInitialized, FALSE);
    int place = 0;
    const HINSTANCE handle = host::instanceOf(&kLibrary);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(host::instanceOf(&place), nullptr); // the stack lies in no library
    EXPECT_EQ(AfxInitExtensionModule(record, handle), TRUE);
    EXPECT_EQ(record.hModule, handle);
    EXPECT_EQ(AfxInitExtensionModule(record, nullptr), TRUE);
    EXPECT_EQ(record.hModule, handle);
    AfxTermExtensionModule(record);
    EXPECT_EQ(record.bInitialized, FALSE);
}

TEST_F(ExtensionLibraryTest, AFailedInitialisationLeavesWhatWasGatheredToTheHost) {
    CRuntimeClass gathered = {"Gathered", sizeof(CObject),        1,
                              nullptr,    &CObject::GetThisClass, nullptr};
    AFX_EXTENSION_MODULE record{};
    AfxExtensionRawEntry();
    EXPECT_EQ(AfxGetModuleState()->m_classList.GetHead(), nullptr);
    AfxClassInit(&gathered);
    EXPECT_EQ(AfxInitExtensionModule(record, nullptr), FALSE);
    EXPECT_EQ(AfxGetModuleState()->m_classList.GetHead(), &gathered);
    EXPECT_EQ(gathered.m_pNextClass, &own_);
    EXPECT_TRUE(AfxGetModuleState()->m_classList.Remove(&gathered));
}

/// Names of a list of classes, the first one first.
std::vector<std::string> namesOf(const CRuntimeClassList& list) {
    std::vector<std::string> names;
    for (const CRuntimeClass* each = list.GetHead(); each != nullptr; each = each->m_pNextClass) {
        names.emplace_back(each->m_lpszClassName);
    }
    return names;
}

using Names = std::vector<std::string>;

TEST_F(ExtensionLibraryTest, AClassLeavesTheHostsListBeforeItsLibraryIsUnmapped) {
    void* handle = dlopen(kClassLibrary.c_str(), RTLD_NOW);
    ASSERT_NE(handle, nullptr) << dlerror();
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), (Names{"Wyvern", "Own"}));
    dlclose(handle);
    EXPECT_EQ(dlopen(kClassLibrary.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Own"});
}

TEST_F(ExtensionLibraryTest, AClassLeavesTheListsSetAsideToo) {
    CRuntimeClass brief = {"Brief", sizeof(CObject), 1, nullptr, &CObject::GetThisClass, nullptr};
    auto registration = std::make_unique<AFX_CLASSINIT>(&brief);
    AfxExtensionRawEntry();
    registration.reset();
    host::putListsBack(0);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Own"});
}

TEST_F(ExtensionLibraryTest, ALibraryThatDoesNotInitialiseItsRecordLeavesTheListsInPlace) {
    void* handle = dlopen(kCareless.c_str(), RTLD_NOW);
    ASSERT_NE(handle, nullptr) << dlerror();
    EXPECT_EQ(host::listsAside(), 0U);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), (Names{"Dragon", "Own"}));
    EXPECT_EQ(AfxGetModuleState()->m_factoryList.GetCount(), 1U);
    dlclose(handle);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Own"});
    EXPECT_EQ(AfxGetModuleState()->m_factoryList.GetCount(), 0U);
}

TEST_F(ExtensionLibraryTest, ALibraryLoadedWhileAnotherGathersHasListsOfItsOwn) {
    CRuntimeClass outer = {"Outer", sizeof(CObject), 1, nullptr, &CObject::GetThisClass, nullptr};
    AFX_EXTENSION_MODULE record{};
    AfxExtensionRawEntry();
    AfxClassInit(&outer);
    for (const std::string& path : {kLibrary, kCareless}) {
        void* handle = dlopen(path.c_str(), RTLD_NOW);
        ASSERT_NE(handle, nullptr) << dlerror();
        EXPECT_EQ(host::listsAside(), 1U);
        dlclose(handle);
        EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Outer"});
    }
    EXPECT_EQ(AfxInitExtensionModule(record, host::instanceOf(&kLibrary)), TRUE);
    EXPECT_EQ(record.pFirstSharedClass, &outer);
    EXPECT_EQ(outer.m_pNextClass, nullptr);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Own"});
    EXPECT_EQ(host::listsAside(), 0U);
    AfxTermExtensionModule(record);
}

TEST_F(ExtensionLibraryTest, TheRecordOfAClassOfThePlatformCanBeRegistered) {
    {
        const AFX_CLASSINIT registration(RUNTIME_CLASS(CWnd));
        EXPECT_EQ(RUNTIME_CLASS(CWnd)->m_pNextClass, &own_);
        EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), (Names{"CWnd", "Own"}));
    }
    EXPECT_EQ(RUNTIME_CLASS(CWnd)->m_pNextClass, nullptr);
    EXPECT_EQ(namesOf(AfxGetModuleState()->m_classList), Names{"Own"});
}

TEST_F(ExtensionLibraryTest, NoOtherLibraryFindsTheEntryFunction) {
    void* handle = dlopen(kCareless.c_str(), RTLD_NOW);
    ASSERT_NE(handle, nullptr) << dlerror();
    EXPECT_EQ(dlsym(handle, "DllMain"), nullptr);
    dlclose(handle);
}

TEST_F(ExtensionLibraryTest, TheResourceHandleIsWhatWasSet) {
    const HINSTANCE before = AfxGetResourceHandle();
    const HINSTANCE handle = host::instanceOf(&kLibrary);
    AfxSetResourceHandle(handle);
    EXPECT_EQ(AfxGetResourceHandle(), handle);
    AfxSetResourceHandle(before);
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

} // namespace
