#pragma once

#include "platform/PlatformTypes.h"

/// Names that the geometry classes share.
namespace AcGe {

/// Class of a geometric object.
enum EntityId { kEntity3d, kCurve3d, kLinearEnt3d, kLine3d, kLineSeg3d, kCircArc3d, kPlane };

/// Outcome of a construction.
enum ErrorCondition {
    kOk = 0,
    k0This,
    kEqualArg1Arg2,
    kEqualArg1Arg3,
    kEqualArg2Arg3,
    kLinearlyDependentArg1Arg2Arg3
};

} // namespace AcGe

using AcGeError = AcGe::ErrorCondition;
