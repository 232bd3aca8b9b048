#include "frame/GravitySearchObject.h"

#include "frame/RuntimeClassRecord.h"

namespace {

void EmptyArrays(GravitySearchObject& object) {
    object.segs.SetSize(0, -1);
    object.wells.SetSize(0, -1);
    object.pathSegs.SetSize(0, -1);
    object.pathWells.SetSize(0, -1);
}

} // namespace

CRuntimeClass GravitySearchObject::classGravitySearchObject = tkvlt::RuntimeClassRecord(
    "GravitySearchObject", sizeof(GravitySearchObject), &GravitySearchObject::_GetBaseClass);

GravitySearchObject::GravitySearchObject() {
    EmptyArrays(*this);
}

GravitySearchObject::~GravitySearchObject() {
    EmptyArrays(*this);
}

CRuntimeClass* GravitySearchObject::GetThisClass() {
    return &classGravitySearchObject;
}

CRuntimeClass* GravitySearchObject::GetRuntimeClass() const {
    return &classGravitySearchObject;
}

CRuntimeClass* GravitySearchObject::_GetBaseClass() {
    return SearchObject::GetThisClass();
}
