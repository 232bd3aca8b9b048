#pragma once

#include "EmbeddedHost.h"
#include "PlanCurve.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

/// A pipe entity as export reads it. Nothing of it is taken from a search.
struct PipePiece {
    AcDbObjectId id;
    std::vector<PlanPoint> points; ///< from its start to its end, arcs in short chords
    double length = 0.0;           ///< along the curve, arcs exactly, drawing units
    std::optional<double> startElevation, endElevation; ///< metres, at its start and its end
};

/// Reads a pipe entity.
PipePiece pipePiece(const AcDbObjectId& id);

/// Reads the pipe entities of a run, in the order of their ids.
std::vector<PipePiece> pipePieces(const AcDbObjectIdArray& ids);

/// The part of a piece from one place to another, both as shares of its way; backwards when the
/// second lies before the first.
struct PiecePart {
    PipePiece piece;
    double from = 0.0;
    double to = 1.0;

    std::vector<PlanPoint> points() const;
    /// Drawing units.
    double length() const;
    /// Heights where the part begins and ends, between those of the piece's ends in proportion.
    std::optional<double> startElevation() const { return elevationAt(from); }
    std::optional<double> endElevation() const { return elevationAt(to); }

private:
    std::optional<double> elevationAt(double share) const;
};

/// The share of the piece's way at which it comes nearest to a place, and how near.
struct NearestShare {
    double share = 0.0;
    double distance = 0.0;
};
NearestShare nearestShare(const PipePiece& piece, const PlanPoint& place);

/// Puts the pieces of a chain in the order in which a way from `start` to `end` passes them. A
/// piece is entered at the end that is nearest to where the way stands or, when none is within
/// `reach`, from the side. Cost: the square of the number of pieces.
std::vector<PiecePart> orderedRun(std::vector<PipePiece> pieces, const PlanPoint& start,
                                  const PlanPoint& end, double reach);

/// The length that a text gives to a whole pipe, metres; nothing without one, and when the pipe is
/// not as long in the drawing as it was when the text was written.
std::optional<double> givenLength(const PipePiece& piece, double metresOfUnit);

/// A text under `key` as a number; nothing when it is missing or no number.
std::optional<double> heightText(const AcDbObjectId& id, const wchar_t* key);

} // namespace pipenet
