#pragma once

#include "database/AcRxObject.h"

#include <map>
#include <string>

/// Objects by name. It owns none of them. Nothing stands under a null name.
class AcRxDictionary : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

public:
    /// The object under a name, nullptr when there is none. Names compare exactly.
    AcRxObject* at(const ACHAR* key) const;
    /// Puts an object under a name and gives the one that stood there, or nullptr.
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object);
    /// Takes a name out and gives its object, or nullptr.
    AcRxObject* remove(const ACHAR* key);
    bool has(const ACHAR* key) const { return at(key) != nullptr; }

private:
    std::map<std::wstring, AcRxObject*> objects_;
};

/// The name of the dynamic linker in the system registry.
#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")

/// The services of the process by name; the dynamic linker is one of them.
AcRxDictionary* acrxSysRegistry();
