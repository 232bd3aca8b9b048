#pragma once

#include "database/AcadErrorStatus.h"
#include "editor/EditorCodes.h"
#include "geometry/AcGeMatrix3d.h"
#include "platform/PlatformTypes.h"

/// Between the user coordinate system of the current drawing and the world's: a point, or with
/// `isVector` a direction and length. `to` may be `from`. False without a drawing; `to` is
/// untouched then.
bool acdbUcs2Wcs(const ads_point from, ads_point to, bool isVector);
bool acdbWcs2Ucs(const ads_point from, ads_point to, bool isVector);

/// The map from the user coordinate system to the world's; the identity until one is set. It is
/// the drawing's and goes with it. eNoDocument without a drawing.
Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& ucs);
/// eInvalidInput unless the axes are of length one and at right angles, right-handed.
Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& ucs);

/// Draws an entity anew: `mode` 1 shows it, 2 hides it, 3 highlights it, 4 ends that; negative
/// modes mean the entity's head alone. Nothing is drawn here, but the call is checked: RTERROR for
/// the name of no entity, an erased one or another mode. A null name draws the whole view.
int acedRedraw(const ads_name entity, int mode);

namespace host {

/// Shows the part of the current drawing about `center`, in the user coordinate system, that is
/// `height` drawing units high; 1000 about the world's origin until it is set. It is the drawing's
/// and goes with it. False, with nothing changed, without a drawing or unless the height is above 0
/// and all is finite.
bool setView(const AcGePoint3d& center, double height);

} // namespace host

/// The coordinates as an array, as the functions above take them.
ads_real* asDblArray(AcGePoint3d& point);
const ads_real* asDblArray(const AcGePoint3d& point);
ads_real* asDblArray(AcGeVector3d& vector);
const ads_real* asDblArray(const AcGeVector3d& vector);
