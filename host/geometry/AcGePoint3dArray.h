#pragma once

#include "geometry/AcGePoint2d.h"
#include "geometry/AcGePoint3d.h"
#include "platform/AcArray.h"

using AcGePoint3dArray = AcArray<AcGePoint3d>;
using AcGePoint2dArray = AcArray<AcGePoint2d>;
