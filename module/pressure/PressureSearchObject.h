#pragma once

#include "frame/SearchObject.h"
#include "pressure/PressureSeg.h"

/// A pressure network: a tree of segments. Whoever holds the object deletes it.
class TKVLT_API PressureSearchObject : public SearchObject {
public:
    /// No segment and no root.
    PressureSearchObject();
    CRuntimeClass* GetRuntimeClass() const override;
    ~PressureSearchObject() override;

    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    static CRuntimeClass classPressureSearchObject;

    int rootSeg = -1;                       ///< index of the root; -1 in a fresh object
    CArray<PressureSeg, PressureSeg&> segs; ///< in the order of the walk
};
