// An extension library with a class and a factory of its own, both registered by static objects
// before its entry function attaches it; TEST_INITIALISES says whether it initialises its record.

#include "EmbeddedHost.h"

namespace {

class Dragon : public CObject {};

CObject* makeDragon() {
    return new Dragon;
}

CRuntimeClass classDragon = {"Dragon",    sizeof(Dragon),         1,
                             &makeDragon, &CObject::GetThisClass, nullptr};
const AFX_CLASSINIT registerDragon(&classDragon);
COleObjectFactory dragonFactory;

AFX_EXTENSION_MODULE extension;

} // namespace

extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        host::announce(L"entry function 1");
        if (TEST_INITIALISES) {
            AfxInitExtensionModule(extension, instance);
            new CDynLinkLibrary(extension);
        }
    } else {
        host::announce(L"entry function " + std::to_wstring(reason));
        AfxTermExtensionModule(extension);
    }
    return TRUE;
}
