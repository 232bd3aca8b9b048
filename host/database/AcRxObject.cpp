#include "database/AcRxObject.h"

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* it = this; it != nullptr; it = it->parent_) {
        if (it == other) {
            return true;
        }
    }
    return false;
}

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc() {
    static AcRxClass descriptor(L"AcRxObject", nullptr, nullptr);
    return &descriptor;
}

AcRxClass* AcRxObject::isA() const {
    return AcRxObject::desc();
}

AcRxObject* AcRxObject::cast(const AcRxObject* object) {
    return const_cast<AcRxObject*>(object);
}

AcRxObject* AcRxObject::clone() const {
    return nullptr;
}
