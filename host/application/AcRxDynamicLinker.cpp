#include "application/AcRxDynamicLinker.h"

#include "application/AcApDocManager.h"
#include "application/LibraryFile.h"
#include "platform/Encoding.h"
#include "platform/HostEvents.h"

#include <algorithm>
#include <dlfcn.h>
#include <exception>
#include <link.h>

ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject, nullptr)

namespace {

constexpr const char* kOneDocument = "it works with one document only, and several are open";

using EntryPoint = int (*)(int message, void* appId);
using ApiVersion = int (*)();

std::string withoutFolders(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

std::string hexadecimal(int number) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    for (auto rest = static_cast<unsigned>(number); rest != 0; rest /= 16) {
        text.insert(text.begin(), kDigits[rest % 16]);
    }
    return "0x" + (text.empty() ? "0" : text);
}

void tell(const std::string& line) {
    if (host::isListening()) {
        host::announce(host_text::fromUtf8(line));
    }
}

/// The system's record of a mapped file.
const link_map* placeOf(void* handle) {
    link_map* place = nullptr;
    return dlinfo(handle, RTLD_DI_LINKMAP, &place) == 0 ? place : nullptr;
}

/// A function that the file itself exports; nullptr when only a library that it is linked with has
/// one of that name.
template<class Function>
Function ownSymbol(void* handle, const char* name) {
    void* address = dlsym(handle, name);
    Dl_info info{};
    link_map* place = nullptr;
    const bool found =
        address != nullptr &&
        dladdr1(address, &info, reinterpret_cast<void**>(&place), RTLD_DL_LINKMAP) != 0;
    return found && place == placeOf(handle) ? reinterpret_cast<Function>(address) : nullptr;
}

/// Where a mapped file was found.
std::string pathOf(void* handle) {
    const link_map* place = placeOf(handle);
    return place == nullptr ? std::string() : place->l_name;
}

/// The handle of a file that is mapped, to be compared and not used; nullptr for any other.
const void* mappedHandle(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle;
}

std::string textOf(const ACHAR* name) {
    return name == nullptr ? std::string() : host_text::toUtf8(name);
}

/// Calls into a module. Gives why it failed, empty when it did not: what a module throws may be of
/// a class of its own, so nothing of it is left when this returns.
template<class Call>
std::string failureOf(Call call) {
    try {
        call();
    } catch (const std::exception& error) {
        return std::string("it fails with an exception: ") + error.what();
    } catch (...) {
        return "it fails with an exception";
    }
    return {};
}

} // namespace

struct AcRxDynamicLinker::Module {
    std::string name;
    std::string path;
    void* handle = nullptr;
    EntryPoint entryPoint = nullptr;
    ApiVersion apiVersion = nullptr;
    bool locked = true;
    bool mdiAware = false;
    bool busy = false; ///< handles a message

    /// Gives why the module failed, or nothing; kRetError counts as a failure at its load alone.
    std::string send(AcRx::AppMsgCode message) {
        int answer = AcRx::kRetOK;
        busy = true;
        std::string failure = failureOf([&] { answer = entryPoint(message, this); });
        busy = false;
        if (failure.empty()) {
            tell("entry " + name + " " + std::to_string(message) + " = " + std::to_string(answer));
        }
        if (message == AcRx::kInitAppMsg && answer == AcRx::kRetError) {
            failure = "it reports an error";
        }
        return failure;
    }
};

AcRxDynamicLinker::AcRxDynamicLinker() = default;

AcRxDynamicLinker::~AcRxDynamicLinker() = default;

bool AcRxDynamicLinker::refuse(const std::string& name, const std::string& reason) {
    lastError_ = name + ": " + reason;
    return false;
}

std::unique_ptr<AcRxDynamicLinker::Module> AcRxDynamicLinker::map(const std::string& path) {
    auto module = std::make_unique<Module>();
    module->name = withoutFolders(path);
    tell("load " + module->name);
    module->handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module->handle == nullptr) {
        const char* reason = dlerror();
        refuse(path, std::string("cannot be loaded: ") + (reason == nullptr ? "" : reason));
        return nullptr;
    }
    module->path = pathOf(module->handle);
    module->entryPoint = ownSymbol<EntryPoint>(module->handle, "acrxEntryPoint");
    module->apiVersion = ownSymbol<ApiVersion>(module->handle, "acrxGetApiVersion");
    if (module->entryPoint == nullptr || module->apiVersion == nullptr) {
        unmap(*module);
        refuse(path, "cannot be loaded: it is no module of this host");
        return nullptr;
    }
    return module;
}

bool AcRxDynamicLinker::loadModule(const ACHAR* fileName, bool /*printit*/, bool /*asCmd*/) {
    const std::string path = textOf(fileName);
    // The system would take an empty name for the program itself.
    if (path.empty()) {
        return refuse("(no name)", "cannot be loaded");
    }
    if (byName(withoutFolders(path)) != nullptr || isLoadedFile(path)) {
        return refuse(path, "is loaded already");
    }
    if (host::isCutShort(path)) {
        return refuse(path, "cannot be loaded: the file is cut short");
    }
    std::unique_ptr<Module> module = map(path);
    if (module == nullptr) {
        return false;
    }
    if (const std::string reason = versionRefusal(*module); !reason.empty()) {
        unmap(*module);
        return refuse(path, "cannot be loaded: " + reason);
    }
    return initialise(std::move(module));
}

std::string AcRxDynamicLinker::versionRefusal(const Module& module) {
    int version = 0;
    std::string failure = failureOf([&] { version = module.apiVersion(); });
    if (!failure.empty()) {
        return failure;
    }
    tell("api version " + module.name + " " + hexadecimal(version));
    constexpr int kMajor = 0x10000;
    if (version / kMajor == AcRx::kApiVersion / kMajor) {
        return {};
    }
    return "it was built for version " + hexadecimal(version) +
           " of the programming interface, and this is " + hexadecimal(AcRx::kApiVersion);
}

bool AcRxDynamicLinker::initialise(std::unique_ptr<Module> owner) {
    // Known before the message, so that the module can ask about itself while it handles it.
    modules_.push_back(std::move(owner));
    Module& module = *modules_.back();
    const std::string name = module.name;
    const std::string failure = module.send(AcRx::kInitAppMsg);
    if (!failure.empty()) {
        forget(module);
        return refuse(name, "cannot be loaded: " + failure);
    }
    if (isOneOfSeveral(module)) {
        module.send(AcRx::kUnloadAppMsg);
        forget(module);
        return refuse(name, std::string("cannot be loaded: ") + kOneDocument);
    }
    return true;
}

bool AcRxDynamicLinker::unloadModule(const ACHAR* fileName, bool /*asCmd*/) {
    const std::string path = textOf(fileName);
    Module* module = byName(withoutFolders(path));
    if (module == nullptr) {
        return refuse(path.empty() ? "(no name)" : path, "is not loaded");
    }
    if (module->busy) {
        return refuse(path, "cannot be unloaded: it is handling a message");
    }
    if (module->locked) {
        return refuse(path, "cannot be unloaded: it is locked");
    }
    if (isOneOfSeveral(*module)) {
        return refuse(path, std::string("cannot be unloaded: ") + kOneDocument);
    }
    const std::string failure = module->send(AcRx::kUnloadAppMsg);
    forget(*module);
    return failure.empty() || refuse(path, "is unloaded, but " + failure);
}

bool AcRxDynamicLinker::isOneOfSeveral(const Module& module) {
    return !module.mdiAware && acDocManager()->documentCount() > 1;
}

void AcRxDynamicLinker::unmap(Module& module) {
    tell("unload " + module.name);
    dlclose(module.handle);
    tell((mappedHandle(module.path) != nullptr ? "still mapped " : "unmapped ") + module.name);
}

void AcRxDynamicLinker::forget(const Module& module) {
    const auto place = std::find_if(modules_.begin(), modules_.end(),
                                    [&](const auto& each) { return each.get() == &module; });
    const std::unique_ptr<Module> owner = std::move(*place);
    modules_.erase(place);
    unmap(*owner);
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::byId(const void* appId) const {
    const auto place = std::find_if(modules_.begin(), modules_.end(),
                                    [&](const auto& each) { return each.get() == appId; });
    return place == modules_.end() ? nullptr : place->get();
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::byName(const std::string& name) const {
    const auto place = std::find_if(modules_.begin(), modules_.end(),
                                    [&](const auto& each) { return each->name == name; });
    return place == modules_.end() ? nullptr : place->get();
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::byName(const ACHAR* fileName) const {
    return byName(withoutFolders(textOf(fileName)));
}

bool AcRxDynamicLinker::isLoadedFile(const std::string& path) const {
    const void* handle = mappedHandle(path);
    return handle != nullptr &&
           std::any_of(modules_.begin(), modules_.end(),
                       [&](const auto& each) { return each->handle == handle; });
}

bool AcRxDynamicLinker::set(bool Module::*flag, const void* appId, bool value,
                            const std::string& event) {
    Module* module = byId(appId);
    if (module == nullptr) {
        return false;
    }
    module->*flag = value;
    tell(event + " " + module->name);
    return true;
}

bool AcRxDynamicLinker::lockApplication(void* appId) {
    return set(&Module::locked, appId, true, "lock application");
}

bool AcRxDynamicLinker::unlockApplication(void* appId) {
    return set(&Module::locked, appId, false, "unlock application");
}

bool AcRxDynamicLinker::isApplicationLocked(void* appId) const {
    const Module* module = byId(appId);
    return module != nullptr && module->locked;
}

bool AcRxDynamicLinker::isApplicationLocked(const ACHAR* moduleName) const {
    return isApplicationLocked(static_cast<void*>(byName(moduleName)));
}

bool AcRxDynamicLinker::registerAppMDIAware(void* appId) {
    return set(&Module::mdiAware, appId, true, "mdi aware");
}

bool AcRxDynamicLinker::registerAppNotMDIAware(void* appId) {
    return set(&Module::mdiAware, appId, false, "not mdi aware");
}

bool AcRxDynamicLinker::isAppMDIAware(void* appId) const {
    const Module* module = byId(appId);
    return module != nullptr && module->mdiAware;
}

bool AcRxDynamicLinker::isAppMDIAware(const ACHAR* moduleName) const {
    return isAppMDIAware(static_cast<void*>(byName(moduleName)));
}

void* AcRxDynamicLinker::applicationId(const std::string& name) const {
    return byName(withoutFolders(name));
}

std::vector<std::string> AcRxDynamicLinker::moduleNames() const {
    std::vector<std::string> names;
    for (const auto& module : modules_) {
        names.push_back(module->name);
    }
    return names;
}

std::string AcRxDynamicLinker::firstNotMDIAware() const {
    for (const auto& module : modules_) {
        if (!module->mdiAware) {
            return module->name;
        }
    }
    return {};
}
