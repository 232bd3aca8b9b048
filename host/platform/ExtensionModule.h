#pragma once

#include "platform/ModuleState.h"

/// What the class library keeps for an extension library: a library that shares the program's class
/// library rather than bringing its own. The record lives in the extension library and is zero at
/// start.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    CRuntimeClass* pFirstSharedClass;
    COleObjectFactory* pFirstSharedFactory;
};

/// The raw entry of an extension library, to be called before any of its static constructors: moves
/// the lists of classes and factories in force aside, so that what registers from now on is the
/// library's. AfxInitExtensionModule puts them back. A library that is loaded while another one
/// gathers has lists of its own; each call puts back what the last raw entry set aside.
void AfxExtensionRawEntry();

/// Initialises the record of an extension library that is being loaded: keeps its handle, takes
/// over the classes and factories gathered since the raw entry, and puts the lists of before
/// back. A record that is initialised already is left as it is. TRUE when done, FALSE for a null
/// handle; then the record stays as it was and what was gathered goes to those lists.
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);

/// Ends an extension library: deletes its per-library objects, of all libraries when `bAll`, and
/// makes the record uninitialised. A record that is not initialised is left alone.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// The class library's object for one attached extension library. Made on the heap by the library
/// at its attach; AfxTermExtensionModule deletes it.
class CDynLinkLibrary : public CObject {
public:
    /// Takes the classes and factories of `state` and enters itself in the program's list, in front
    /// of those attached before. `bSystem` marks a library of the class library's own.
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    CRuntimeClassList m_classList;
    CObjectFactoryList m_factoryList;
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL = nullptr;
};

namespace host {

/// How many times lists have been set aside and not been put back.
std::size_t listsAside();
/// Puts lists back until `kept` are left aside; what was gathered meanwhile goes to them. For a
/// library that has set them aside and did not initialise its record.
void putListsBack(std::size_t kept);

/// Classes registered in the host's list and in those of the extension libraries.
std::size_t registeredClassCount();
/// Per-library objects that live.
std::size_t extensionLibraryCount();

} // namespace host
