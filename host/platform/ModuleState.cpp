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

namespace {

/// Takes a record out of the one list that it stands in: that in force, one set aside, or that of
/// an extension library. `listOf` gives the list of each of these.
template<class Record, class ListOf>
void leaveItsList(Record* record, ListOf listOf) {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    bool found = listOf(*state).Remove(record);
    for (AFX_LISTS_ASIDE& aside : state->m_listsAside) {
        found = found || listOf(aside).Remove(record);
    }
    for (CDynLinkLibrary* library = state->m_pFirstLibrary; library != nullptr && !found;
         library = library->m_pNextDLL) {
        found = listOf(*library).Remove(record);
    }
}

} // namespace

COleObjectFactory::~COleObjectFactory() {
    leaveItsList(this, [](auto& owner) -> CObjectFactoryList& { return owner.m_factoryList; });
}

AFX_CLASSINIT::~AFX_CLASSINIT() {
    leaveItsList(m_pClass, [](auto& owner) -> CRuntimeClassList& { return owner.m_classList; });
}
