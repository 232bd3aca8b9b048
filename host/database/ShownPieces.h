#pragma once

#include "database/CurvePath.h"

#include <vector>

class AcDbEntity;

namespace host_db {

/// Chords between two knots of a spline, where it is taken for its chords.
inline constexpr int kChords = 64;

/// A piece with splines taken for their chords, appended to `pieces`.
void addPlain(const CurvePiece& piece, std::vector<CurvePiece>& pieces);

/// The piece, which is no spline, as it stands under the transform.
CurvePiece transformed(const CurvePiece& piece, const AcGeMatrix3d& transform);

/// The lines and elliptic arcs that an entity draws, in world coordinates: a curve its pieces in
/// order, a block reference those of its definition's curves; nothing for other entities and for
/// references that show too much.
std::vector<CurvePiece> shownPieces(const AcDbEntity& entity);

} // namespace host_db
