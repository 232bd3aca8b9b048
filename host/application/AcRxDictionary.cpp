#include "application/AcRxDictionary.h"

#include "application/AcRxDynamicLinker.h"

#include <utility>

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, nullptr)

AcRxObject* AcRxDictionary::at(const ACHAR* key) const {
    if (key == nullptr) {
        return nullptr;
    }
    const auto found = objects_.find(key);
    return found == objects_.end() ? nullptr : found->second;
}

AcRxObject* AcRxDictionary::atPut(const ACHAR* key, AcRxObject* object) {
    return key == nullptr ? nullptr : std::exchange(objects_[key], object);
}

AcRxObject* AcRxDictionary::remove(const ACHAR* key) {
    AcRxObject* object = at(key);
    if (key != nullptr) {
        objects_.erase(key);
    }
    return object;
}

namespace {

/// The services live as long as the registry that names them.
struct SystemRegistry {
    SystemRegistry() { names.atPut(ACRX_DYNAMIC_LINKER, &linker); }

    AcRxDynamicLinker linker;
    AcRxDictionary names;
};

} // namespace

AcRxDictionary* acrxSysRegistry() {
    static SystemRegistry registry;
    return &registry.names;
}
