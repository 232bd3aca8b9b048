#include "frame/SearchObject.h"

#include "frame/RuntimeClassRecord.h"

CRuntimeClass SearchObject::classSearchObject =
    tkvlt::RuntimeClassRecord("SearchObject", sizeof(SearchObject), &SearchObject::_GetBaseClass);

SearchObject::SearchObject() = default;

SearchObject::~SearchObject() = default;

CRuntimeClass* SearchObject::GetThisClass() {
    return &classSearchObject;
}

CRuntimeClass* SearchObject::GetRuntimeClass() const {
    return &classSearchObject;
}

CRuntimeClass* SearchObject::_GetBaseClass() {
    return RUNTIME_CLASS(CObject);
}
