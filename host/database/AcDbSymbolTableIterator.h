#pragma once

#include "database/AcDbObjectIterator.h"
#include "database/AcDbSymbolTableRecord.h"

/// Walks the records of a symbol table as they were when the walk began.
class AcDbSymbolTableIterator : public AcDbObjectIterator {
public:
    using AcDbObjectIterator::AcDbObjectIterator;

    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    /// Opens the record; to be closed by the caller.
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record,
                                AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;
};
