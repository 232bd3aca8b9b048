#pragma once

#include "dxf/RecordDescription.h"

class AcDbBlockTableRecord;
class AcDbSymbolTableRecord;

namespace host_dxf {

/// What the record of a symbol table says, without handle, owner and extended data.
RecordDescription describeTableRecord(const AcDbSymbolTableRecord& record);

/// What the BLOCK record of a definition says.
RecordDescription describeBlockBegin(const AcDbBlockTableRecord& record);

} // namespace host_dxf
