#pragma once

#include "platform.h"

namespace tkvlt {

/// The module as an extension library of the class library. An object is zero at start.
struct ExtensionModule {
    ExtensionModule();
    ExtensionModule(const ExtensionModule&) = delete;
    ExtensionModule& operator=(const ExtensionModule&) = delete;
    /// Detaches what is still attached. That of the library itself is detached by then.
    ~ExtensionModule();

    /// Initialises `module` for the library `instance` and makes its per-library object, which the
    /// class library deletes at the detach. Gives `attached`; 0 for a null handle, with the rest as
    /// it was, and 0 without any change when it is attached already.
    int Attach(HINSTANCE instance);
    /// Ends `module` when it is attached, and is detached afterwards.
    void Detach();

    int attached;              ///< nonzero while the extension module is initialised
    HINSTANCE defaultResource; ///< the resource handle that was current at the attach
    HINSTANCE moduleResource;  ///< the module's own handle
    AFX_EXTENSION_MODULE module;
};

} // namespace tkvlt
