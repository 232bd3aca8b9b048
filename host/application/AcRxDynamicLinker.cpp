#include "application/AcRxDynamicLinker.h"

#include "application/AcApDocManager.h"
#include "platform/Encoding.h"
#include "platform/HostEvents.h"

#include <algorithm>
#include <dlfcn.h>
#include <link.h>

ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject, nullptr)

namespace {

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

template<class Function>
Function symbol(void* handle, const char* name) {
    return reinterpret_cast<Function>(dlsym(handle, name));
}

/// Where a mapped file was found.
std::string pathOf(void* handle) {
    link_map* place = nullptr;
    return dlinfo(handle, RTLD_DI_LINKMAP, &place) == 0 ? place->l_name : std::string();
}

bool isMapped(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle == nullptr) {
        return false;
    }
    dlclose(handle);
    return true;
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

    int send(AcRx::AppMsgCode message) {
        const int answer = entryPoint(message, this);
        tell("entry " + name + " " + std::to_string(message) + " = " + std::to_string(answer));
        return answer;
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
    module->entryPoint = symbol<EntryPoint>(module->handle, "acrxEntryPoint");
    module->apiVersion = symbol<ApiVersion>(module->handle, "acrxGetApiVersion");
    if (module->entryPoint == nullptr || module->apiVersion == nullptr) {
        unmap(*module);
        refuse(path, "cannot be loaded: it is no module of this host");
        return nullptr;
    }
    return module;
}

bool AcRxDynamicLinker::loadModule(const ACHAR* fileName, bool /*printit*/, bool /*asCmd*/) {
    const std::string path = host_text::toUtf8(fileName);
    if (byName(withoutFolders(path)) != nullptr) {
        return refuse(path, "is loaded already");
    }
    std::unique_ptr<Module> module = map(path);
    if (module == nullptr) {
        return false;
    }
    const int version = module->apiVersion();
    tell("api version " + module->name + " " + hexadecimal(version));
    constexpr int kMajor = 0x10000;
    if (version / kMajor != AcRx::kApiVersion / kMajor) {
        unmap(*module);
        return refuse(path, "cannot be loaded: it was built for version " + hexadecimal(version) +
                                " of the programming interface, and this is " +
                                hexadecimal(AcRx::kApiVersion));
    }
    return initialise(std::move(module));
}

bool AcRxDynamicLinker::initialise(std::unique_ptr<Module> owner) {
    // Known before the message, so that the module can ask about itself while it handles it.
    modules_.push_back(std::move(owner));
    Module& module = *modules_.back();
    const std::string name = module.name;
    if (module.send(AcRx::kInitAppMsg) == AcRx::kRetError) {
        forget(module);
        return refuse(name, "cannot be loaded: it reports an error");
    }
    if (!module.mdiAware && acDocManager()->documentCount() > 1) {
        module.send(AcRx::kUnloadAppMsg);
        forget(module);
        return refuse(name, "cannot be loaded: it works with one document only, and several are "
                            "open");
    }
    return true;
}

bool AcRxDynamicLinker::unloadModule(const ACHAR* fileName, bool /*asCmd*/) {
    const std::string path = host_text::toUtf8(fileName);
    Module* module = byName(withoutFolders(path));
    if (module == nullptr) {
        return refuse(path, "is not loaded");
    }
    if (module->locked) {
        return refuse(path, "cannot be unloaded: it is locked");
    }
    module->send(AcRx::kUnloadAppMsg);
    forget(*module);
    return true;
}

void AcRxDynamicLinker::unmap(Module& module) {
    tell("unload " + module.name);
    dlclose(module.handle);
    tell((isMapped(module.path) ? "still mapped " : "unmapped ") + module.name);
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
    return byName(withoutFolders(host_text::toUtf8(fileName)));
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
