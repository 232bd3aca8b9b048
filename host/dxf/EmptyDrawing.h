#pragma once

#include <string>

class AcDbDatabase;

namespace host_dxf {

/// A complete drawing file of version R2018, UTF-8 text, without any entity, to which a drawing
/// that was read from no file can be added: the tables and what every program expects in them,
/// model space and one layout. Records that `database` has too carry its handles, the others
/// handles from its next one on.
std::string emptyDrawing(const AcDbDatabase& database);

} // namespace host_dxf
