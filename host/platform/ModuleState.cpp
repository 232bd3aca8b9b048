#include "platform/ModuleState.h"

#include "platform/ExtensionModule.h"

AFX_MODULE_STATE* AfxGetModuleState() {
    static AFX_MODULE_STATE state;
    return &state;
}

HINSTANCE AfxGetResourceHandle() {
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE instance) {
    AfxGetModuleState()->m_hCurrentResourceHandle = instance;
}

void AfxClassInit(CRuntimeClass* newClass) {
    AfxGetModuleState()->m_classList.AddHead(newClass);
}

COleObjectFactory::COleObjectFactory() {
    AfxGetModuleState()->m_factoryList.AddHead(this);
}

COleObjectFactory::~COleObjectFactory() {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    bool found = state->m_factoryList.Remove(this);
    for (CDynLinkLibrary* library = state->m_pFirstLibrary; library != nullptr && !found;
         library = library->m_pNextDLL) {
        found = library->m_factoryList.Remove(this);
    }
}
