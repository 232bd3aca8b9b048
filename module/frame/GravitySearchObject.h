#pragma once

#include "frame/SearchObject.h"
#include "records/GravitySeg.h"
#include "records/Well.h"

/// A gravity network: a tree of wells and segments, and the path from an end entity to the root.
///
/// The arrays own their elements by value. Whoever holds the object deletes it.
class TKVLT_API GravitySearchObject : public SearchObject {
public:
    /// Empty arrays and no root.
    GravitySearchObject();
    CRuntimeClass* GetRuntimeClass() const override; ///< that of the object's own class
    ~GravitySearchObject() override;

    static CRuntimeClass* GetThisClass();          ///< the address of `classGravitySearchObject`
    static CRuntimeClass* _GetBaseClass();         ///< that of SearchObject
    static CRuntimeClass classGravitySearchObject; ///< dynamic identity, no creation

    CArray<Well, Well&> wells;            ///< in the order the search reached them; 0 is the root
    CArray<GravitySeg, GravitySeg&> segs; ///< in the order the search built them
    CArray<int, int> pathSegs;  ///< indices in `segs` from the end entity back to the root
    CArray<int, int> pathWells; ///< indices in `wells` of the same path, ending with 0
    int rootWell = -1;          ///< index of the root; -1 in a fresh object, 0 after a search
};
