#pragma once

#include "database/CurvePath.h"

namespace host_db {

/// What each kind of piece answers. `local` is the piece's own parameter, from firstLocal to
/// lastLocal; distances run from the piece's start.
double firstLocal(const SegmentPiece& piece);
double firstLocal(const ArcPiece& piece);
double firstLocal(const SplinePiece& piece);
double lastLocal(const SegmentPiece& piece);
double lastLocal(const ArcPiece& piece);
double lastLocal(const SplinePiece& piece);

AcGePoint3d pointAt(const SegmentPiece& piece, double local);
AcGePoint3d pointAt(const ArcPiece& piece, double local);
AcGePoint3d pointAt(const SplinePiece& piece, double local);

AcGeVector3d derivativeAt(const SegmentPiece& piece, double local);
AcGeVector3d derivativeAt(const ArcPiece& piece, double local);
AcGeVector3d derivativeAt(const SplinePiece& piece, double local);

/// Length from the piece's start to `local`: exact for segments and circular arcs, by quadrature
/// for others.
double lengthTo(const SegmentPiece& piece, double local);
double lengthTo(const ArcPiece& piece, double local);
double lengthTo(const SplinePiece& piece, double local);

/// The parameter at a length from 0 to the piece's own.
double localAtLength(const SegmentPiece& piece, double length);
double localAtLength(const ArcPiece& piece, double length);
double localAtLength(const SplinePiece& piece, double length);

/// The parameter of the nearest point; the first of equally near ones.
double closestLocal(const SegmentPiece& piece, const AcGePoint3d& point);
double closestLocal(const ArcPiece& piece, const AcGePoint3d& point);
double closestLocal(const SplinePiece& piece, const AcGePoint3d& point);

/// Grows `box` by the piece under the transform.
void addExtents(const SegmentPiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box);
void addExtents(const ArcPiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box);
void addExtents(const SplinePiece& piece, const AcGeMatrix3d& transform, AcDbExtents& box);

} // namespace host_db
