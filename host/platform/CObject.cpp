#include "platform/CObject.h"

CRuntimeClass CObject::classCObject = {
    "CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr, nullptr};

CRuntimeClass* CObject::GetThisClass() {
    return &classCObject;
}

CRuntimeClass* CObject::_GetBaseClass() {
    return nullptr;
}

CRuntimeClass* CObject::GetRuntimeClass() const {
    return GetThisClass();
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive& /*archive*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*context*/) const {}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return runtimeClass != nullptr && GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
