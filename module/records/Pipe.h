#pragma once

#include "records/Entity.h"

/// Snapshot of a pipe curve. Positions and lengths are drawing units, angles radians.
///
/// A line, an arc entity and a polyline that begins straight are the straight chord from the first
/// to the last point; a polyline whose first segment is an arc carries that one segment in `arc`,
/// while the chord is kept beside it.
class TKVLT_API _Pipe : public _Entity {
public:
    _Pipe();
    _Pipe(_Pipe& other); ///< copies every field
    /// Reads the curve `id`; one open and close. A curve that cannot be opened leaves the defaults
    /// with `valid` 0. A curve whose ends are nearer than 1.0 keeps `direction`, `angle` and
    /// `valid` at their defaults; at exactly 1.0 it is valid.
    _Pipe(AcDbObjectId id, CString systemName);
    _Pipe& operator=(const _Pipe& other); ///< copies every field
    ~_Pipe() override;

    /// Length of the whole pipe: the two-point form between `startPoint` and `endPoint`.
    double GetLength();
    /// Length along the pipe's curve between the places nearest to `p1` and `p2`, plus the
    /// distances by which the two points miss the curve. Never negative; the same for swapped
    /// arguments.
    double GetLength(AcGePoint3d p1, AcGePoint3d p2);

    AcGePoint3d startPoint;                ///< of the curve
    AcGePoint3d endPoint;                  ///< of the curve
    AcGeVector3d direction{1.0, 0.0, 0.0}; ///< unit vector from `startPoint` to `endPoint`
    double angle =
        0.0;        ///< between `direction` and the X axis, 0 to pi; does not tell left from right
    int isPolyline; ///< 1 when the entity is a polyline; unset after a failed open
    int isArc = 0;  ///< 1 when the entity is a polyline whose first segment is an arc
    AcGeLineSeg3d line;      ///< the chord, kept for arcs too
    AcGeCircArc3d arc;       ///< the first polyline segment; meaningful only when `isArc` is 1
    int orientationFlag = 1; ///< 1 for a whole entity, 0 for a piece cut off by the pressure search
};
