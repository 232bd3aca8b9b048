#pragma once

#include "Export.h"
#include "platform.h"

/// Base of the result objects of a search. It has no fields; its run-time class tells which kind of
/// network a result holds.
class TKVLT_API SearchObject : public CObject {
public:
    SearchObject();                                  ///< nothing to set
    CRuntimeClass* GetRuntimeClass() const override; ///< that of the object's own class
    ~SearchObject() override;

    static CRuntimeClass* GetThisClass();   ///< the address of `classSearchObject`
    static CRuntimeClass* _GetBaseClass();  ///< that of CObject
    static CRuntimeClass classSearchObject; ///< dynamic identity, no creation
};
