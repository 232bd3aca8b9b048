#pragma once

#include "platform/CObject.h"
#include "platform/InstanceHandle.h"
#include "platform/PlatformTypes.h"
#include "platform/SimpleList.h"

#include <vector>

class CDynLinkLibrary;

/// Makes objects of one class for other programs. Here it is only an entry in the list of
/// factories: it registers itself when it is made and leaves the list that it stands in when it
/// goes.
class COleObjectFactory : public CObject {
public:
    COleObjectFactory();
    ~COleObjectFactory() override;

    COleObjectFactory* m_pNextFactory = nullptr;
};

using CRuntimeClassList = SimpleList<CRuntimeClass, &CRuntimeClass::m_pNextClass>;
using CObjectFactoryList = SimpleList<COleObjectFactory, &COleObjectFactory::m_pNextFactory>;

/// Lists set aside while a library gathers its own.
struct AFX_LISTS_ASIDE {
    CRuntimeClassList m_classList;
    CObjectFactoryList m_factoryList;
};

/// What the class library keeps for the program: the classes and factories that registered, the
/// resource handle in force, and the extension libraries attached.
struct AFX_MODULE_STATE {
    CRuntimeClassList m_classList;
    CObjectFactoryList m_factoryList;
    /// The program's own lists first; behind them those of libraries whose loading is interrupted
    /// by the loading of another.
    std::vector<AFX_LISTS_ASIDE> m_listsAside;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
    /// The library attached last comes first; not owned here.
    CDynLinkLibrary* m_pFirstLibrary = nullptr;
};

/// The one state of the process.
AFX_MODULE_STATE* AfxGetModuleState();

/// The handle that resources are looked up in; nullptr, the program itself, until one is set.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE instance);

/// Puts a class into the list in force: the host's, or that of the library that is being loaded.
void AfxClassInit(CRuntimeClass* newClass);

/// Registers a class for as long as this lives: the record leaves whichever list it then stands
/// in, so that none keeps a record of a library that is unmapped. A static object of this kind
/// stands beside the record of each class that can be made by name.
struct AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* newClass) : m_pClass(newClass) { AfxClassInit(newClass); }
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;
    ~AFX_CLASSINIT();

    CRuntimeClass* m_pClass;
};
