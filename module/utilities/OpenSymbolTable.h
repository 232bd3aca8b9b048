#pragma once

#include "platform.h"

namespace tkvlt {

/// Opens a symbol table of the working drawing for read; it must be closed. On a status other than
/// `Acad::eOk`, `eNoDatabase` without a drawing, `table` is nullptr.
template<typename Table>
Acad::ErrorStatus OpenSymbolTable(Table*& table) {
    const AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    table = nullptr;
    return drawing == nullptr ? Acad::eNoDatabase : drawing->getSymbolTable(table, AcDb::kForRead);
}

} // namespace tkvlt
