// The frame from inside: the extension module record, the library's entry function, the document
// data and its checked map.

#include "frame/ModuleFrame.h"
#include "frame/AcrxEntryPoint.h"
#include "frame/AsdkDataManager.h"
#include "frame/CDocData.h"
#include "frame/ExtensionModule.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>

namespace module_tests {
namespace {

using tkvlt::CheckedMap;
using tkvlt::ExtensionModule;

/// Any handle serves: that of this program.
HINSTANCE handle() {
    static const int place = 0;
    return host::instanceOf(&place);
}

TEST(ExtensionModuleRecord, IsZeroAtStartAndHasItsFieldsInOrder) {
    const ExtensionModule record;
    EXPECT_EQ(record.attached, 0);
    EXPECT_EQ(record.defaultResource, nullptr);
    EXPECT_EQ(record.moduleResource, nullptr);
    EXPECT_EQ(record.module.bInitialized, FALSE);
    EXPECT_EQ(record.module.hModule, nullptr);
    EXPECT_EQ(static_cast<const void*>(&record), static_cast<const void*>(&record.attached));
    EXPECT_LT(static_cast<const void*>(&record.attached),
              static_cast<const void*>(&record.defaultResource));
    EXPECT_LT(&record.defaultResource, &record.moduleResource);
    EXPECT_LT(static_cast<const void*>(&record.moduleResource),
              static_cast<const void*>(&record.module));
}

TEST(ExtensionModuleRecord, AttachKeepsTheHandlesAndMakesTheLibrarysObject) {
    int current = 0;
    AfxSetResourceHandle(reinterpret_cast<HINSTANCE>(&current));
    const std::size_t before = host::extensionLibraryCount();
    ExtensionModule record;
    EXPECT_NE(record.Attach(handle()), 0);
    EXPECT_NE(record.attached, 0);
    EXPECT_EQ(record.defaultResource, reinterpret_cast<HINSTANCE>(&current));
    EXPECT_EQ(record.moduleResource, handle());
    EXPECT_EQ(record.module.hModule, handle());
    EXPECT_EQ(host::extensionLibraryCount(), before + 1);
    EXPECT_EQ(AfxGetModuleState()->m_pFirstLibrary->m_bSystem, FALSE);
    EXPECT_EQ(AfxGetResourceHandle(), reinterpret_cast<HINSTANCE>(&current));
    record.Detach();
    EXPECT_EQ(host::extensionLibraryCount(), before);
    AfxSetResourceHandle(nullptr);
}

TEST(ExtensionModuleRecord, ASecondAttachReturnsZeroAndChangesNothing) {
    ExtensionModule record;
    ASSERT_NE(record.Attach(handle()), 0);
    const std::size_t libraries = host::extensionLibraryCount();
    const int attached = record.attached;
    const host::HostRecorder recorder;
    int current = 0;
    AfxSetResourceHandle(reinterpret_cast<HINSTANCE>(&current));
    EXPECT_EQ(record.Attach(reinterpret_cast<HINSTANCE>(&current)), 0);
    EXPECT_EQ(record.attached, attached);
    EXPECT_EQ(record.defaultResource, nullptr);
    EXPECT_EQ(record.moduleResource, handle());
    EXPECT_EQ(record.module.hModule, handle());
    EXPECT_EQ(host::extensionLibraryCount(), libraries);
    EXPECT_TRUE(recorder.lines().empty());
    AfxSetResourceHandle(nullptr);
    record.Detach();
}

TEST(ExtensionModuleRecord, AFailingInitialisationLeavesItDetached) {
    const std::size_t libraries = host::extensionLibraryCount();
    ExtensionModule record;
    EXPECT_EQ(record.Attach(nullptr), 0);
    EXPECT_EQ(record.attached, 0);
    EXPECT_EQ(record.moduleResource, nullptr);
    EXPECT_EQ(host::extensionLibraryCount(), libraries);
    EXPECT_NE(record.Attach(handle()), 0);
    record.Detach();
}

TEST(ExtensionModuleRecord, DetachEndsOnceWhatWasAttached) {
    ExtensionModule record;
    const host::HostRecorder recorder;
    record.Detach();
    EXPECT_TRUE(recorder.lines().empty());
    record.Attach(handle());
    record.Detach();
    record.Detach();
    EXPECT_EQ(record.attached, 0);
    EXPECT_EQ(recorder.linesOf(L"extension term").size(), 1U);
    // The handles stay as they were; another attach is possible.
    EXPECT_EQ(record.moduleResource, handle());
    EXPECT_NE(record.Attach(handle()), 0);
    record.Detach();
}

TEST(ExtensionModuleRecord, WhatGoesWhileAttachedLeavesNothingBehind) {
    const std::size_t libraries = host::extensionLibraryCount();
    {
        ExtensionModule record;
        ASSERT_NE(record.Attach(handle()), 0);
    }
    EXPECT_EQ(host::extensionLibraryCount(), libraries);
}

TEST(EntryFunction, ReportsSuccessThoughTheAttachFails) {
    const host::HostRecorder recorder;
    EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr), 1);
    EXPECT_EQ(tkvlt::instanceHandle, nullptr);
    EXPECT_EQ(recorder.lines(), std::vector<std::wstring>{L"ui library ready"});
    EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_DETACH, nullptr), 1);
}

TEST(EntryFunction, KeepsTheHandleAndAttachesBeforeTheUserInterface) {
    const std::wstring name = host_text::fromUtf8(host::fileNameOf(handle()));
    const host::HostRecorder recorder;
    EXPECT_EQ(DllMain(handle(), DLL_PROCESS_ATTACH, nullptr), 1);
    EXPECT_EQ(tkvlt::instanceHandle, handle());
    EXPECT_EQ(DllMain(handle(), DLL_PROCESS_DETACH, nullptr), 1);
    EXPECT_EQ(recorder.lines(),
              (std::vector<std::wstring>{L"extension init " + name, L"extension library " + name,
                                         L"ui library ready", L"extension term " + name,
                                         L"extension library gone " + name}));
}

TEST(EntryFunction, AttachesOnceThoughItIsCalledTwice) {
    const std::size_t libraries = host::extensionLibraryCount();
    EXPECT_EQ(DllMain(handle(), DLL_PROCESS_ATTACH, nullptr), 1);
    const CDynLinkLibrary* library = AfxGetModuleState()->m_pFirstLibrary;
    const host::HostRecorder recorder;
    EXPECT_EQ(DllMain(handle(), DLL_PROCESS_ATTACH, nullptr), 1);
    EXPECT_EQ(recorder.lines(), std::vector<std::wstring>{L"ui library ready"});
    EXPECT_EQ(host::extensionLibraryCount(), libraries + 1);
    EXPECT_EQ(AfxGetModuleState()->m_pFirstLibrary, library);
    EXPECT_EQ(tkvlt::instanceHandle, handle());
    EXPECT_EQ(DllMain(handle(), DLL_PROCESS_DETACH, nullptr), 1);
    EXPECT_EQ(host::extensionLibraryCount(), libraries);
}

TEST(EntryFunction, OtherReasonsDoNothing) {
    const host::HostRecorder recorder;
    for (const DWORD reason : {2U, 3U, 77U}) {
        EXPECT_EQ(DllMain(handle(), reason, nullptr), 1);
    }
    EXPECT_TRUE(recorder.lines().empty());
}

/// A manager whose records can be reached.
class Numbers : public AsdkDataManager<int> {
public:
    tkvlt::CheckedMap<AcApDocument*, int>& data() { return data_; }
};

TEST(DocumentData, TheManagerIsAReactorFromItsBeginningToItsEnd) {
    EXPECT_TRUE((std::is_base_of_v<AcApDocManagerReactor, AsdkDataManager<CDocData>>));
    EXPECT_TRUE((std::is_base_of_v<AcRxObject, AsdkDataManager<CDocData>>));
    const std::size_t before = acDocManager()->reactorCount();
    const host::HostRecorder recorder;
    {
        const AsdkDataManager<CDocData> manager;
        EXPECT_EQ(acDocManager()->reactorCount(), before + 1);
    }
    EXPECT_EQ(acDocManager()->reactorCount(), before);
    EXPECT_EQ(recorder.lines(), (std::vector<std::wstring>{L"reactor added", L"reactor removed"}));
}

TEST(DocumentData, ADocumentTakesItsRecordWithIt) {
    Numbers numbers;
    AcApDocument* first = host::newDocument();
    AcApDocument* second = host::newDocument();
    numbers.data()[first] = 1;
    numbers.data()[second] = 2;
    host::closeDocument(first);
    ASSERT_EQ(numbers.data().Size(), 1U);
    EXPECT_EQ(numbers.data().Find(second)->second, 2);
    EXPECT_EQ(numbers.data().Find(first), numbers.data().End());
    host::closeDocument(second);
    EXPECT_EQ(numbers.data().Size(), 0U);
}

TEST(DocumentData, NothingIsKeptForDocumentsThatComeAndGo) {
    Numbers numbers;
    AcApDocument* document = host::newDocument();
    EXPECT_EQ(numbers.data().Size(), 0U);
    host::closeDocument(document);
    EXPECT_EQ(numbers.data().Size(), 0U);
}

/// What an operation throws as out of range; "" when nothing.
template<class Operation>
std::string outOfRange(Operation operation) {
    try {
        operation();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "";
}

constexpr const char* kInvalid = "invalid map/set<T> iterator";

TEST(CheckedMapIterator, EndIsNotReadSteppedOverOrErased) {
    CheckedMap<int, int> map;
    map[1] = 10;
    EXPECT_EQ(outOfRange([&] { (void)*map.End(); }), kInvalid);
    EXPECT_EQ(outOfRange([&] { (void)map.Find(2)->second; }), kInvalid);
    EXPECT_EQ(outOfRange([&] { ++map.End(); }), kInvalid);
    EXPECT_EQ(outOfRange([&] { map.Erase(map.End()); }), kInvalid);
    EXPECT_EQ(map.Size(), 1U);
}

TEST(CheckedMapIterator, IteratorsBelongToOneMap) {
    CheckedMap<int, int> map;
    CheckedMap<int, int> other;
    map[1] = 10;
    other[1] = 20;
    EXPECT_EQ(outOfRange([&] { other.Erase(map.Begin()); }), kInvalid);
    EXPECT_EQ(outOfRange([&] { (void)(map.Begin() == other.Begin()); }), kInvalid);
    EXPECT_EQ(map.Size() + other.Size(), 2U);
}

TEST(CheckedMapIterator, ValidOnesWalkAndErase) {
    CheckedMap<int, int> map;
    map[2] = 20;
    map[1] = 10;
    auto at = map.Begin();
    EXPECT_EQ((*at).second, 10);
    at = map.Erase(at);
    EXPECT_EQ(at->first, 2);
    ++at;
    EXPECT_TRUE(at == map.End());
    EXPECT_EQ(map.Erase(2), 1U);
    EXPECT_EQ(map.Erase(2), 0U);
}

} // namespace
} // namespace module_tests
