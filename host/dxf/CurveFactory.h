#pragma once

#include "dxf/DxfRecord.h"

#include <memory>

class AcDbEntity;

namespace host_dxf {

/// The curve that a LINE, ARC, CIRCLE, LWPOLYLINE, ELLIPSE or SPLINE record describes. nullptr for
/// every other record and for one whose numbers make no such curve (a spline whose knots do not
/// fit its points): such a record is kept as it is.
std::unique_ptr<AcDbEntity> makeCurve(const DxfRecord& record);

} // namespace host_dxf
