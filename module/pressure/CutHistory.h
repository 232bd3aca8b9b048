#pragma once

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "pressure/PipePieces.h"

namespace tkvlt {

/// Remembers which piece of which entity was cut where, and recognises the same cut made again:
/// of the same entity, with the piece's two ends and the cut point each no farther from the earlier
/// ones than a tolerance. Noting and asking cost the logarithm of the number of cuts.
class CutHistory {
public:
    /// @param tolerance drawing units; its sign is of no account, and no number counts as 0.
    explicit CutHistory(double tolerance);

    bool Holds(const AcDbObjectId& id, const PipePiece& piece, const AcGePoint3d& cutPoint) const;
    void Note(const AcDbObjectId& id, const PipePiece& piece, const AcGePoint3d& cutPoint);

private:
    struct Cut {
        AcGePoint3d startPoint;
        AcGePoint3d endPoint;
        AcGePoint3d cutPoint;
    };
    /// The entity and the square, as wide as the tolerance, in which the cut point lies.
    using Place = std::tuple<std::int64_t, std::int64_t, std::int64_t>;

    std::int64_t SquareOf(double coordinate) const;
    bool HoldsAt(const Place& place, const Cut& cut) const;

    double tolerance_;
    std::map<Place, std::vector<Cut>> cuts_;
};

} // namespace tkvlt
