#pragma once

#include "dxf/RecordDescription.h"

class AcDbEntity;

namespace host_dxf {

/// What an entity's own record says, without handle, owner and extended data; of a heavy polyline
/// without its vertices. An entity that the host does not model gives an empty type and the groups
/// that all entities have.
RecordDescription describeEntity(const AcDbEntity& entity);

} // namespace host_dxf
