#pragma once

#include "application/AcRxEntryPoint.h"
#include "database/AcRxObject.h"

#include <memory>
#include <string>
#include <vector>

/// Loads modules into the process and unloads them.
///
/// A module is a shared library that exports `acrxGetApiVersion`, which tells the generation of the
/// programming interface it was built against, and `acrxEntryPoint`, which gets the messages.
/// Loading maps the file, which runs its static constructors, then asks the version, then sends
/// kInitAppMsg; unloading sends kUnloadAppMsg, then unmaps the file. A fresh module is locked,
/// which forbids to unload it, and counts as unable to work with several documents, until it
/// says otherwise while it handles kInitAppMsg or later. An `appId` is the value that the entry
/// point gets with a message and holds while the module is loaded. Modules are named by file
/// name, folders left out. What fails leaves its reason in `lastError` and changes nothing, but for
/// an unload message that the module does not survive. Null names are those of no module.
class AcRxDynamicLinker : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

public:
    AcRxDynamicLinker();
    /// Forgets the modules that are still loaded; they end with the process.
    ~AcRxDynamicLinker() override;

    /// Loads a module from a file; a name without a folder is looked up as the system does, and a
    /// library that the process is linked with is found by its name. False for an empty name, for a
    /// file that cannot be mapped or does not export both entries itself, for another major
    /// version, for a module that is loaded already, under this file name or as this file under
    /// another, for one that throws or answers kRetError, and, while several documents are open,
    /// for one that has not declared itself MDI aware when kInitAppMsg is done. `printit` and
    /// `asCmd` have no effect.
    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false);

    /// Unloads a module by its name or path. False for one that is not loaded, is locked or is
    /// handling a message, and, while several documents are open, for one that is not MDI aware.
    /// False too for one that throws at kUnloadAppMsg, which is gone nevertheless.
    bool unloadModule(const ACHAR* fileName, bool asCmd = false);

    /// Forbid and allow to unload a module. False for an unknown id.
    bool lockApplication(void* appId);
    bool unlockApplication(void* appId);
    /// False for an unknown id or name.
    bool isApplicationLocked(void* appId) const;
    bool isApplicationLocked(const ACHAR* moduleName) const;

    /// Declare that a module can, or cannot, work with several open documents. While a module that
    /// cannot is loaded, a second document is not opened. False for an unknown id.
    bool registerAppMDIAware(void* appId);
    bool registerAppNotMDIAware(void* appId);
    /// False for an unknown id or name.
    bool isAppMDIAware(void* appId) const;
    bool isAppMDIAware(const ACHAR* moduleName) const;

    /// Names of the loaded modules in the order of their loading, UTF-8.
    std::vector<std::string> moduleNames() const;
    /// The id of a loaded module, by its name or path in UTF-8; nullptr for any other.
    void* applicationId(const std::string& name) const;
    /// The name of the first loaded module that is not MDI aware; empty when all are.
    std::string firstNotMDIAware() const;
    /// Why the last loadModule or unloadModule failed: one line, UTF-8.
    const std::string& lastError() const { return lastError_; }

private:
    struct Module;

    bool refuse(const std::string& name, const std::string& reason);
    std::unique_ptr<Module> map(const std::string& path);
    /// Why a module's version does not fit; empty when it does.
    static std::string versionRefusal(const Module& module);
    bool initialise(std::unique_ptr<Module> module);
    /// It is not MDI aware, and several documents are open.
    static bool isOneOfSeveral(const Module& module);
    void unmap(Module& module);
    void forget(const Module& module);
    bool set(bool Module::*flag, const void* appId, bool value, const std::string& event);
    Module* byId(const void* appId) const;
    Module* byName(const std::string& name) const;
    Module* byName(const ACHAR* fileName) const;
    bool isLoadedFile(const std::string& path) const;

    std::vector<std::unique_ptr<Module>> modules_;
    std::string lastError_;
};
