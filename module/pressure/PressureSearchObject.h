#pragma once

#include "frame/SearchObject.h"
#include "pressure/PressureSeg.h"

/// A pressure network: a tree of segments. Whoever holds the object deletes it.
class TKVLT_API PressureSearchObject : public SearchObject {
public:
    /// No segment and no root.
    PressureSearchObject();
    CRuntimeClass* GetRuntimeClass() const override; ///< that of the object's own class
    ~PressureSearchObject() override;

    static CRuntimeClass* GetThisClass();           ///< the address of `classPressureSearchObject`
    static CRuntimeClass* _GetBaseClass();          ///< that of SearchObject
    static CRuntimeClass classPressureSearchObject; ///< dynamic identity, no creation

    int rootSeg = -1;                       ///< index of the root; -1 in a fresh object
    CArray<PressureSeg, PressureSeg&> segs; ///< in the order of the walk
};
