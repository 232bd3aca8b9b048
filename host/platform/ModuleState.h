#pragma once

#include "platform/CObject.h"
#include "platform/InstanceHandle.h"
#include "platform/PlatformTypes.h"
#include "platform/SimpleList.h"

class CDynLinkLibrary;

/// Makes objects of one class for other programs. Here it is only an entry in the list of
/// factories: it registers itself when it is made and leaves the list of the library that gathered
/// it, or the host's, when it goes.
class COleObjectFactory : public CObject {
public:
    COleObjectFactory();
    ~COleObjectFactory() override;

    COleObjectFactory* m_pNextFactory = nullptr;
};

using CRuntimeClassList = SimpleList<CRuntimeClass, &CRuntimeClass::m_pNextClass>;
using CObjectFactoryList = SimpleList<COleObjectFactory, &COleObjectFactory::m_pNextFactory>;

/// What the class library keeps for the program: the classes and factories that registered, the
/// resource handle in force, and the extension libraries attached.
struct AFX_MODULE_STATE {
    CRuntimeClassList m_classList;
    CObjectFactoryList m_factoryList;
    /// The program's own classes and factories while a library gathers its own.
    CRuntimeClass* m_pClassInit = nullptr;
    COleObjectFactory* m_pFactoryInit = nullptr;
    /// The two lists above are set aside.
    bool m_bListsAside = false;
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

/// Registers a class for as long as the library lives that holds it. A static object of this kind
/// stands beside the record of each class that can be made by name.
struct AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* newClass) { AfxClassInit(newClass); }
};
