#pragma once

#include "dxf/RecordDescription.h"

#include <cstddef>

class AcDbEntity;

namespace host_dxf {

/// What an entity's own record says, without handle, owner and extended data; of a heavy polyline
/// without its vertices. An entity that the host does not model gives an empty type and the groups
/// that all entities have.
RecordDescription describeEntity(const AcDbEntity& entity);

/// Number of the vertices of a heavy polyline, which are records of their own; 0 for others.
std::size_t heavyVertexCount(const AcDbEntity& entity);

/// The entity belongs to the paper space whose entities stand beside those of the model.
bool isInMainPaperSpace(const AcDbEntity& entity);

} // namespace host_dxf
