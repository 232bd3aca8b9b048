// Moves each pipe end that lies at a well of the system to that well's centre.

#include <algorithm>
#include <array>
#include <utility>

#include "pressure/PressureNetworkSearch.h"

namespace tkvlt {

namespace {

/// A pipe end is at a well when it is nearer to its position than this many radii.
constexpr double kAtWell = 1.1;

/// So many pipes are looked up before the first of them is moved: what lies at their ends stands
/// all over memory, and the processor can wait for much of it at once.
constexpr int kLookedUpTogether = 16;

void MoveEnd(PipePieces& pipes, int index, const AcGePoint3d& position) {
    PipePiece piece = pipes.At(index);
    if (piece.isArc != 0) {
        pipes.ArcOf(index).set(piece.startPoint, piece.endPoint, position);
    }
    piece.endPoint = position;
    pipes.Set(index, piece);
}

void MoveStart(PipePieces& pipes, int index, const AcGePoint3d& position) {
    PipePiece piece = pipes.At(index);
    if (piece.isArc != 0) {
        pipes.ArcOf(index).set(position, piece.startPoint, piece.endPoint);
    }
    piece.startPoint = position;
    pipes.Set(index, piece);
}

} // namespace

void PressureNetworkSearch::SnapEndsToWells() {
    if (lengthMode == 0) {
        return;
    }
    for (int first = 0; first < pipePool.Size(); first += kLookedUpTogether) {
        SnapPipes(first, std::min(first + kLookedUpTogether, pipePool.Size()));
    }
}

/// Where a pipe is moved changes nothing for any other.
void PressureNetworkSearch::SnapPipes(int first, int end) {
    for (int i = first; i < end; ++i) {
        if (pipePool.Has(i)) {
            candidates_->ExpectWellsAt(pipePool.At(i).startPoint);
            candidates_->ExpectWellsAt(pipePool.At(i).endPoint);
        }
    }
    std::array<Indices, kLookedUpTogether> wells;
    for (int i = first; i < end; ++i) {
        if (pipePool.Has(i)) {
            wells[static_cast<std::size_t>(i - first)] = WellsAtEnds(pipePool.At(i));
        }
    }
    for (int i = first; i < end; ++i) {
        if (pipePool.Has(i)) {
            SnapPipe(i, std::move(wells[static_cast<std::size_t>(i - first)]));
        }
    }
}

Indices PressureNetworkSearch::WellsAtEnds(const PipePiece& pipe) const {
    const double reach = candidates_->LargestWellRadius() * kAtWell;
    Indices wells = candidates_->WellsIn(PlanBox::Around(pipe.startPoint, reach));
    wells.Append(candidates_->WellsIn(PlanBox::Around(pipe.endPoint, reach)));
    wells.SortUnique();
    return wells;
}

/// Each end moves once, to the first well in pool order that it lies at; wells behind that one are
/// tested against the moved end. A pipe with both ends at one well stays as it is from there on.
void PressureNetworkSearch::SnapPipe(int index, Indices wells) {
    const PipePiece& pipe = pipePool.At(index);
    bool startDone = false;
    bool endDone = false;
    for (std::size_t n = 0; n < wells.size() && !(startDone && endDone); ++n) {
        const int w = wells[n];
        const WellSite& well = SiteOfWell(w);
        if (traits_.systems[well.system].Compare(systemName) != 0) {
            continue;
        }
        const bool nearStart = pipe.startPoint.distanceTo(well.position) < well.radius * kAtWell;
        const bool nearEnd = pipe.endPoint.distanceTo(well.position) < well.radius * kAtWell;
        if (nearStart && nearEnd) {
            return;
        }
        if ((!nearStart && !nearEnd) || (nearStart && startDone) || (nearEnd && endDone)) {
            continue;
        }
        if (nearEnd) {
            MoveEnd(pipePool, index, well.position);
            endDone = true;
        } else {
            MoveStart(pipePool, index, well.position);
            startDone = true;
        }
        // The moved end lies at other wells now; those behind this one count.
        wells = WellsAtEnds(pipe);
        n = static_cast<std::size_t>(std::upper_bound(wells.begin(), wells.end(), w) -
                                     wells.begin()) -
            1;
    }
}

} // namespace tkvlt
