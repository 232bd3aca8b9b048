#pragma once

#include "records/Block.h"

/// A node of a gravity network: a well or a tank that the search reached.
///
/// `inSeg` and `outSegs` follow the direction of the walk, not that of the water. A copy has every
/// field of the original except `mergedEntities`, which is empty in a copy-constructed node and
/// left as it was by an assignment.
class TKVLT_API Well : public _Block {
public:
    Well();
    Well(Well& other);                  ///< `mergedEntities` of the copy is empty
    Well& operator=(const Well& other); ///< keeps its own `mergedEntities`
    ~Well() override;

    int isWell = 1;          ///< 1 for a well, 0 for a tank
    AcDbObjectId nodeEntity; ///< the block that this node stands for
    AcGePoint3d nodePoint;   ///< the block's position, moved when wells are merged
    AcArray<AcDbObjectId> mergedEntities{0, 8}; ///< further well blocks merged into this node
    double nodeRadius = 0.0;    ///< drawing units; 0.0 for a tank, widened when wells are merged
    CArray<int, int> outSegs;   ///< indices of the segments that the walk started from this node
    int inSeg = -1;             ///< index of the segment that reached this node; -1 for the root
    CString number;             ///< the well's number; empty for a tank
    CArray<int, int> extraList; ///< for sibling modules: only constructed and copied here
    double extraPoint[3] = {0.0, 0.0, 0.0}; ///< for sibling modules: only constructed and copied
};
