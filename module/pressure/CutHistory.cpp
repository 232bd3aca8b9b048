#include "pressure/CutHistory.h"

#include <algorithm>
#include <cmath>

namespace tkvlt {

/// At an infinite drawing scale, or one that is no number, only the very same places are one.
CutHistory::CutHistory(double tolerance)
    : tolerance_(std::isnan(tolerance) ? 0.0 : std::fabs(tolerance)) {}

/// Squares beyond the outermost one are one square with it, and so is everything when the tolerance
/// cannot part the plane.
std::int64_t CutHistory::SquareOf(double coordinate) const {
    constexpr double outermost = 1e15;
    const double square = std::floor(coordinate / tolerance_);
    return std::isnan(square)
               ? 0
               : static_cast<std::int64_t>(std::clamp(square, -outermost, outermost));
}

bool CutHistory::HoldsAt(const Place& place, const Cut& cut) const {
    const auto found = cuts_.find(place);
    return found != cuts_.end() &&
           std::any_of(found->second.begin(), found->second.end(), [&](const Cut& made) {
               return made.startPoint.distanceTo(cut.startPoint) <= tolerance_ &&
                      made.endPoint.distanceTo(cut.endPoint) <= tolerance_ &&
                      made.cutPoint.distanceTo(cut.cutPoint) <= tolerance_;
           });
}

bool CutHistory::Holds(const AcDbObjectId& id, const PipePiece& piece,
                       const AcGePoint3d& cutPoint) const {
    const Cut cut{piece.startPoint, piece.endPoint, cutPoint};
    const std::int64_t x = SquareOf(cutPoint.x);
    const std::int64_t y = SquareOf(cutPoint.y);
    for (const std::int64_t dx : {-1, 0, 1}) {
        for (const std::int64_t dy : {-1, 0, 1}) {
            if (HoldsAt({id.asOldId(), x + dx, y + dy}, cut)) {
                return true;
            }
        }
    }
    return false;
}

void CutHistory::Note(const AcDbObjectId& id, const PipePiece& piece, const AcGePoint3d& cutPoint) {
    const Place place{id.asOldId(), SquareOf(cutPoint.x), SquareOf(cutPoint.y)};
    cuts_[place].push_back({piece.startPoint, piece.endPoint, cutPoint});
}

} // namespace tkvlt
