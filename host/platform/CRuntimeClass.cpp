#include "platform/CRuntimeClass.h"

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    const CRuntimeClass* candidate = this;
    while (candidate != nullptr && candidate != base) {
        candidate =
            candidate->m_pfnGetBaseClass == nullptr ? nullptr : candidate->m_pfnGetBaseClass();
    }
    return candidate != nullptr;
}

CObject* CRuntimeClass::CreateObject() const {
    return m_pfnCreateObject == nullptr ? nullptr : m_pfnCreateObject();
}
