#pragma once

#include "database/AcDbDatabase.h"
#include "dxf/DxfDrawingSource.h"
#include "dxf/FileSurvey.h"
#include "dxf/LoadContext.h"

class AcDbEntity;
class AcDbSymbolTableRecord;

namespace host_dxf {

/// Objects as the file has them, read again one by one into a database of their own, to be compared
/// with what became of them. Names are those of the file; ids lead into the database of this class.
class OriginalObjects {
public:
    /// `source` must outlive the object. Goes through the file once.
    explicit OriginalObjects(const DxfDrawingSource& source);

    /// The entity of the record at `range`. Belongs to this object.
    const AcDbEntity& entity(const SourceRange& range);
    /// The record of a symbol table at `range`.
    const AcDbSymbolTableRecord& tableRecord(const SourceRange& range);

private:
    AcDbObjectId attribute();
    AcDbObjectId knownUnder(std::uint64_t handle) const;
    void moveTo(const SourceRange& range);

    AcDbDatabase database_;
    LoadContext context_;
    AcDbObjectId block_;
};

} // namespace host_dxf
