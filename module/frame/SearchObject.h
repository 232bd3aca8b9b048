#pragma once

#include "Export.h"
#include "platform.h"

/// Base of the result objects of a search. It has no fields; its run-time class tells which kind of
/// network a result holds.
class TKVLT_API SearchObject : public CObject {
public:
    SearchObject();
    CRuntimeClass* GetRuntimeClass() const override;
    ~SearchObject() override;

    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    static CRuntimeClass classSearchObject;
};
