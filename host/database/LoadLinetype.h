#pragma once

#include "database/AcadErrorStatus.h"
#include "platform/PlatformTypes.h"

class AcDbDatabase;

namespace host_db {

/// What AcDbDatabase::loadLineTypeFile does, without telling anybody.
Acad::ErrorStatus loadLinetype(AcDbDatabase& database, const ACHAR* name, const ACHAR* file);

} // namespace host_db
