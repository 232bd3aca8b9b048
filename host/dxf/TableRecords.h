#pragma once

#include "dxf/LoadContext.h"

#include <optional>
#include <string_view>

namespace host_dxf {

/// The database's table for a table's name in the file; none for tables it does not model.
std::optional<LoadContext::Table> tableOfName(std::string_view name);

/// Adds a record of a symbol table (LAYER, LTYPE, STYLE, DIMSTYLE, APPID, BLOCK_RECORD) to the
/// database. False, with nothing done, for a record of another kind.
bool addTableRecord(LoadContext& context, const DxfRecord& record);

} // namespace host_dxf
