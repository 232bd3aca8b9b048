#pragma once

#include "dxf/RecordDescription.h"

class AcDbBlockTableRecord;
class AcDbSymbolTableRecord;

namespace host_dxf {

/// What the record of a symbol table says, without handle, owner and extended data. With
/// `lengthsAlone` a linetype's dash is its length: versions without markers have no texts and
/// shapes in linetypes.
RecordDescription describeTableRecord(const AcDbSymbolTableRecord& record, bool lengthsAlone);

/// What the BLOCK record of a definition says.
RecordDescription describeBlockBegin(const AcDbBlockTableRecord& record);

} // namespace host_dxf
