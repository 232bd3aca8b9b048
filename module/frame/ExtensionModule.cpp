#include "frame/ExtensionModule.h"

namespace tkvlt {

ExtensionModule::ExtensionModule()
    : attached(0), defaultResource(nullptr), moduleResource(nullptr), module{} {}

ExtensionModule::~ExtensionModule() {
    Detach();
}

int ExtensionModule::Attach(HINSTANCE instance) {
    if (attached != 0) {
        return 0;
    }
    attached = AfxInitExtensionModule(module, instance);
    if (attached != 0) {
        defaultResource = AfxGetResourceHandle();
        moduleResource = instance;
        // Enters itself in the class library's list, which owns it from then on.
        new CDynLinkLibrary(module, FALSE);
    }
    return attached;
}

void ExtensionModule::Detach() {
    if (attached != 0) {
        AfxTermExtensionModule(module, FALSE);
        attached = 0;
    }
}

} // namespace tkvlt
