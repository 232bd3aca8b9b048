// Cuts each pipe at every place where another pipe of the pool crosses or touches it between its
// ends, so that each junction becomes a meeting of ends. The pieces stand at the end of the pool,
// where the pairing reaches them in turn.

#include <algorithm>

#include "pressure/PressureNetworkSearch.h"
#include "records/PipeBox.h"

namespace tkvlt {

namespace {

/// Ten millimetres of the real network, in drawing units: nearer than this to a pipe's end a
/// crossing is a meeting at that end.
double EndTolerance() {
    return 10.0 / GetVZDrawScale();
}

bool IsNear(const AcGePoint3d& a, const AcGePoint3d& b) {
    return a.distanceTo(b) < EndTolerance();
}

/// The first half of a straight pipe, and of an arc the way round its circle over the old end: the
/// piece keeps the circle and has the right ends, only its sweep is the longer one.
void EndPieceAt(_Pipe& piece, const AcGePoint3d& point) {
    piece.orientationFlag = 0;
    piece.endPoint = point;
    if (piece.isArc == 0) {
        const AcGePoint3d start = piece.line.startPoint();
        piece.line.set(start, point);
    } else {
        const AcGePoint3d start = piece.arc.startPoint();
        const AcGePoint3d end = piece.arc.endPoint();
        piece.arc.set(start, end, point);
    }
}

/// The second half; of an arc the way from the cut over the old end round to the old start.
void StartPieceAt(_Pipe& piece, const AcGePoint3d& point) {
    piece.orientationFlag = 0;
    piece.startPoint = point;
    if (piece.isArc == 0) {
        const AcGePoint3d end = piece.line.endPoint();
        piece.line.set(point, end);
    } else {
        const AcGePoint3d start = piece.arc.startPoint();
        const AcGePoint3d end = piece.arc.endPoint();
        piece.arc.set(point, end, start);
    }
}

} // namespace

void PressureNetworkSearch::SplitCrossings() {
    CutsByEntity cuts;
    for (int i = 0; i < pipePool.Size(); ++i) {
        if (pipePool.Has(i)) {
            SplitPipe(i, cuts);
        }
    }
}

/// Pairs pipe i with every pipe behind it, until i itself is cut: its pieces have their turn later.
void PressureNetworkSearch::SplitPipe(int i, CutsByEntity& cuts) {
    const double slack = 2.0 * AcGeContext::gTol.equalPoint();
    std::vector<int> others = candidates_->PipesReachingInto(PipeBox(pipePool[i]).Widened(slack));
    for (std::size_t n = 0; n < others.size(); ++n) {
        const int j = others[n];
        if (j <= i || !pipePool.Has(j)) {
            continue;
        }
        const Crossing crossing = CrossingOf(pipePool[i], pipePool[j]);
        if (!crossing.hit) {
            continue;
        }
        const bool cutI = IsCutBy(pipePool[i], crossing.point, cuts);
        if (IsCutBy(pipePool[j], crossing.point, cuts)) {
            // Pieces lie at the end of the pool, so this list too stays in pool order.
            const int firstPiece = CutPipe(j, crossing.point, cuts);
            others.push_back(firstPiece);
            others.push_back(firstPiece + 1);
        }
        if (cutI) {
            CutPipe(i, crossing.point, cuts);
            return;
        }
    }
}

/// A pair of curves that meets at two places counts as not meeting.
PressureNetworkSearch::Crossing PressureNetworkSearch::CrossingOf(const _Pipe& first,
                                                                  const _Pipe& second) const {
    Crossing crossing;
    AcGePoint3d otherPoint;
    int count = -1;
    int met = 0;
    if (first.isArc != 0 && second.isArc != 0) {
        met = first.arc.intersectWith(second.arc, count, crossing.point, otherPoint);
    } else if (first.isArc != 0) {
        met = first.arc.intersectWith(second.line, count, crossing.point, otherPoint);
    } else if (second.isArc != 0) {
        met = second.arc.intersectWith(first.line, count, crossing.point, otherPoint);
    } else {
        met = first.line.intersectWith(second.line, crossing.point);
    }
    crossing.hit = met == 1 && count != 2;
    return crossing;
}

/// A crossing between the pipe's ends cuts it, unless the very same cut has been made before: the
/// arc of a piece reaches round its circle over its fellow's cut, so that two arcs could cut one
/// another without end.
bool PressureNetworkSearch::IsCutBy(const _Pipe& pipe, const AcGePoint3d& point,
                                    const CutsByEntity& cuts) const {
    if (IsNear(point, pipe.startPoint) || IsNear(point, pipe.endPoint)) {
        return false;
    }
    const auto made = cuts.find(pipe.id);
    return made == cuts.end() ||
           std::none_of(made->second.begin(), made->second.end(), [&](const Cut& cut) {
               return IsNear(cut.startPoint, pipe.startPoint) &&
                      IsNear(cut.endPoint, pipe.endPoint) && IsNear(cut.cutPoint, point);
           });
}

/// Replaces the pipe by two pieces at the end of the pool and gives the index of the first.
int PressureNetworkSearch::CutPipe(int pipe, const AcGePoint3d& point, CutsByEntity& cuts) {
    cuts[pipePool[pipe].id].push_back({pipePool[pipe].startPoint, pipePool[pipe].endPoint, point});
    const int first = pipePool.Add(pipePool[pipe]);
    EndPieceAt(pipePool[first], point);
    const int second = pipePool.Add(pipePool[pipe]);
    StartPieceAt(pipePool[second], point);
    pipePool.Remove(pipe);
    candidates_->PieceAdded(first);
    candidates_->PieceAdded(second);
    return first;
}

} // namespace tkvlt
