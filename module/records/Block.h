#pragma once

#include "records/Entity.h"

/// Snapshot of a block reference: a well or a tank. Positions and `radius` are drawing units.
class TKVLT_API _Block : public _Entity {
public:
    /// The defaults of the fields; `radius` stands for a well of diameter 1 metre.
    _Block();
    _Block(_Block& other); ///< copies every field
    /// Reads the block reference `id`. `note` is kept for sibling modules; `systemName` is the
    /// well's system, or empty for a tank. `radius` comes from the text "井的直径" alone: a block
    /// without it has 0.0. When the open fails, `valid` stays 0 and the rest at its defaults.
    _Block(AcDbObjectId id, CString note, CString systemName);
    _Block& operator=(const _Block& other); ///< copies every field
    ~_Block() override;

    CString note;          ///< what the constructor was given
    CString handle;        ///< the entity's handle in hexadecimal text
    AcGePoint3d position;  ///< insertion point
    AcGeScale3d scale;     ///< of the reference
    AcDbExtents extents;   ///< best-fit geometric extents
    double rotation = 0.0; ///< radians
    double radius;         ///< half the well's size
    int isSquareWell =
        0; ///< 1 when the block's definition is named "VLT_WELL_04", case-sensitively
};
