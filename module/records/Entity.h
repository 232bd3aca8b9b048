#pragma once

#include "Export.h"
#include "platform.h"

/// Snapshot of a drawing entity: the common base of the records that a search works on.
///
/// A record holds an id and copied values, never a pointer into the drawing, and does not follow
/// later changes of the drawing. Copy construction takes a non-const reference; that is the
/// signature sibling modules link to.
class TKVLT_API _Entity {
public:
    /// A null id, empty texts, `valid` 0.
    _Entity();
    _Entity(_Entity& other); ///< copies every field
    /// Keeps `id` and `systemName`; `layer` stays empty and `valid` 0. Nothing is read.
    _Entity(AcDbObjectId id, CString systemName);
    _Entity& operator=(const _Entity& other); ///< copies every field
    virtual ~_Entity();

    AcDbObjectId id;    ///< the entity this record was taken from
    CString layer;      ///< layer name of the entity
    CString systemName; ///< text under the entity's system key; a network is one system name
    int valid = 0;      ///< 1 when the record was filled from the drawing
};
