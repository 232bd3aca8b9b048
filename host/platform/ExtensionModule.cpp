#include "platform/ExtensionModule.h"

#include "platform/Encoding.h"
#include "platform/HostEvents.h"

#include <utility>

namespace {

using LibraryList = SimpleList<CDynLinkLibrary, &CDynLinkLibrary::m_pNextDLL>;

/// The program's list of libraries as a list; what is done to it must be stored back.
LibraryList libraries() {
    LibraryList list;
    list.m_pHead = AfxGetModuleState()->m_pFirstLibrary;
    return list;
}

void tell(const wchar_t* event, HMODULE module) {
    if (host::isListening()) {
        host::announce(event + host_text::fromUtf8(host::fileNameOf(module)));
    }
}

/// Puts the lists set aside last back and hands out what was gathered meanwhile; nothing when none
/// were set aside.
AFX_LISTS_ASIDE takeGathered() {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    if (state->m_listsAside.empty()) {
        return {};
    }
    const AFX_LISTS_ASIDE aside = state->m_listsAside.back();
    state->m_listsAside.pop_back();
    return {std::exchange(state->m_classList, aside.m_classList),
            std::exchange(state->m_factoryList, aside.m_factoryList)};
}

/// Enters the records of a chain in a list, each in front of those before.
template<class List, class Record>
void addAll(List& list, Record* first, Record* Record::*next) {
    while (first != nullptr) {
        Record* rest = first->*next;
        list.AddHead(first);
        first = rest;
    }
}

void giveGatheredToOwnerBefore() {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    const AFX_LISTS_ASIDE gathered = takeGathered();
    addAll(state->m_classList, gathered.m_classList.GetHead(), &CRuntimeClass::m_pNextClass);
    addAll(state->m_factoryList, gathered.m_factoryList.GetHead(),
           &COleObjectFactory::m_pNextFactory);
}

} // namespace

void AfxExtensionRawEntry() {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    state->m_listsAside.push_back(
        {std::exchange(state->m_classList, {}), std::exchange(state->m_factoryList, {})});
    host::announce(L"classes aside");
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
    if (state.bInitialized != FALSE) {
        return TRUE;
    }
    if (hModule == nullptr) {
        giveGatheredToOwnerBefore();
        return FALSE;
    }
    state.bInitialized = TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    const AFX_LISTS_ASIDE gathered = takeGathered();
    state.pFirstSharedClass = gathered.m_classList.GetHead();
    state.pFirstSharedFactory = gathered.m_factoryList.GetHead();
    tell(L"extension init ", hModule);
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll) {
    if (state.bInitialized == FALSE) {
        return;
    }
    tell(L"extension term ", state.hModule);
    CDynLinkLibrary* library = AfxGetModuleState()->m_pFirstLibrary;
    while (library != nullptr) {
        CDynLinkLibrary* next = library->m_pNextDLL;
        if (bAll != FALSE || library->m_hModule == state.hModule) {
            delete library;
        }
        library = next;
    }
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem) {
    m_classList.m_pHead = state.pFirstSharedClass;
    m_factoryList.m_pHead = state.pFirstSharedFactory;
    LibraryList list = libraries();
    list.AddHead(this);
    AfxGetModuleState()->m_pFirstLibrary = list.GetHead();
    tell(L"extension library ", m_hModule);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    LibraryList list = libraries();
    list.Remove(this);
    AfxGetModuleState()->m_pFirstLibrary = list.GetHead();
    tell(L"extension library gone ", m_hModule);
}

namespace host {

std::size_t listsAside() {
    return AfxGetModuleState()->m_listsAside.size();
}

void putListsBack(std::size_t kept) {
    while (listsAside() > kept) {
        giveGatheredToOwnerBefore();
    }
}

std::size_t registeredClassCount() {
    std::size_t count = AfxGetModuleState()->m_classList.GetCount();
    for (const CDynLinkLibrary* library = AfxGetModuleState()->m_pFirstLibrary; library != nullptr;
         library = library->m_pNextDLL) {
        count += library->m_classList.GetCount();
    }
    return count;
}

std::size_t extensionLibraryCount() {
    return libraries().GetCount();
}

} // namespace host
