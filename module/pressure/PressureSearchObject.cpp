#include "pressure/PressureSearchObject.h"

#include "frame/RuntimeClassRecord.h"

CRuntimeClass PressureSearchObject::classPressureSearchObject = tkvlt::RuntimeClassRecord(
    "PressureSearchObject", sizeof(PressureSearchObject), &PressureSearchObject::_GetBaseClass);

PressureSearchObject::PressureSearchObject() {
    segs.SetSize(0, -1);
}

PressureSearchObject::~PressureSearchObject() {
    segs.SetSize(0, -1);
}

CRuntimeClass* PressureSearchObject::GetThisClass() {
    return &classPressureSearchObject;
}

CRuntimeClass* PressureSearchObject::GetRuntimeClass() const {
    return &classPressureSearchObject;
}

CRuntimeClass* PressureSearchObject::_GetBaseClass() {
    return SearchObject::GetThisClass();
}
