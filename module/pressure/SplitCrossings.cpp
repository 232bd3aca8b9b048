// Cuts each pipe at every place where another pipe of the pool crosses or touches it between its
// ends, so that each junction becomes a meeting of ends. The pieces stand at the end of the pool,
// where the pairing reaches them in turn.

#include <algorithm>

#include "pressure/PressureNetworkSearch.h"
#include "records/PipeCrossing.h"

namespace tkvlt {

namespace {

// An arc that thirteen branches meet is cut fewer times than these; every two further branches
// double the number, and each piece is one more way round the same circle.
constexpr int kCutsOfAnyDrawing = 1536;
constexpr int kCutsOfAnyPipe = 64;
/// Beyond these, and as many a pipe as above, no cut is made any more of what could be cut without
/// end.
constexpr int kCutsOfNoDrawing = 5000;

/// Ten millimetres of the real network, in drawing units: nearer than this to a pipe's end a
/// crossing is a meeting at that end.
double EndTolerance() {
    return 10.0 / GetVZDrawScale();
}

/// A straight pipe crosses another at one place and a circle at two, so each is cut twice at most
/// for every other. Where coordinates are so large that rounding moves the place by more than an
/// end reaches, it is found anew on every piece, and only this number ends the cutting.
double StraightCutsOf(int drawn) {
    return kCutsOfAnyDrawing + 2.0 * drawn * drawn;
}

/// The first half of a straight pipe, and of an arc the way round its circle over the old end: the
/// piece keeps the circle and has the right ends, only its sweep is the longer one.
void EndPieceAt(PipePieces& pipes, int index, const AcGePoint3d& point) {
    PipePiece piece = pipes.At(index);
    piece.orientationFlag = 0;
    piece.endPoint = point;
    if (piece.isArc != 0) {
        AcGeCircArc3d& arc = pipes.ArcOf(index);
        const AcGePoint3d start = arc.startPoint();
        const AcGePoint3d end = arc.endPoint();
        arc.set(start, end, point);
    }
    pipes.Set(index, piece);
}

/// The second half; of an arc the way from the cut over the old end round to the old start.
void StartPieceAt(PipePieces& pipes, int index, const AcGePoint3d& point) {
    PipePiece piece = pipes.At(index);
    piece.orientationFlag = 0;
    piece.startPoint = point;
    if (piece.isArc != 0) {
        AcGeCircArc3d& arc = pipes.ArcOf(index);
        const AcGePoint3d start = arc.startPoint();
        const AcGePoint3d end = arc.endPoint();
        arc.set(point, end, start);
    }
    pipes.Set(index, piece);
}

} // namespace

/// The arc of a piece reaches round its circle over its fellow's cut, so that arcs which cross one
/// another can be cut without end. When there are more cuts than any drawing needs, the cutting
/// starts again and makes no cut twice; then it ends, since the places on a pipe are not without
/// number, and a bound holds should rounding make ever new ones: what could be cut without end
/// stays as it is from there on, while the other pipes are cut as before.
void PressureNetworkSearch::SplitCrossings() {
    const int drawn = pipePool.Size();
    const double tolerance = EndTolerance();
    if (SplitAll({nullptr, kCutsOfAnyDrawing + kCutsOfAnyPipe * drawn, StraightCutsOf(drawn),
                  tolerance})) {
        return;
    }
    pipePool.RestoreFirst(drawn);
    if (cuts != nullptr) {
        cuts->clear();
    }
    CutHistory history(tolerance);
    SplitAll(
        {&history, kCutsOfNoDrawing + kCutsOfAnyPipe * drawn, StraightCutsOf(drawn), tolerance});
}

/// False when the cuts were used up before all pipes had their turn.
bool PressureNetworkSearch::SplitAll(CutLimits limits) {
    candidates_->CuttingBegins(2.0 * std::max(AcGeContext::gTol.equalPoint(), 0.0));
    for (int i = 0; i < pipePool.Size() && !limits.IsExhausted(); ++i) {
        candidates_->ExpectPipesFrom(i);
        if (pipePool.Has(i)) {
            SplitPipe(i, limits);
        }
    }
    return !limits.IsExhausted();
}

/// Pairs pipe i with every pipe behind it, until i itself is cut: its pieces have their turn later.
void PressureNetworkSearch::SplitPipe(int i, CutLimits& limits) {
    Indices others = candidates_->LaterPipesNear(i);
    for (std::size_t n = 0; n < others.size() && !limits.IsExhausted(); ++n) {
        const int j = others[n];
        if (!pipePool.Has(j) || !(MayBeCut(i, limits) || MayBeCut(j, limits))) {
            continue;
        }
        const PipeCrossing crossing = CrossingOf(pipePool.CurveOf(i), pipePool.CurveOf(j));
        if (!crossing.hit) {
            continue;
        }
        const bool cutI = IsCutBy(i, crossing.point, limits);
        const bool cutJ = IsCutBy(j, crossing.point, limits);
        if (cuts != nullptr && (cutI || cutJ)) {
            cuts->push_back({pipePool.IdOf(i), pipePool.IdOf(j), crossing.point});
        }
        if (cutJ) {
            // Pieces lie at the end of the pool, so this list too stays in pool order.
            const int firstPiece = CutPipe(j, crossing.point, limits);
            others.push_back(firstPiece);
            others.push_back(firstPiece + 1);
        }
        if (cutI) {
            CutPipe(i, crossing.point, limits);
            return;
        }
    }
}

/// A crossing between the pipe's ends cuts it.
bool PressureNetworkSearch::IsCutBy(int pipe, const AcGePoint3d& point,
                                    const CutLimits& limits) const {
    const PipePiece& piece = pipePool.At(pipe);
    const auto isNear = [&](const AcGePoint3d& end) {
        return point.distanceTo(end) < limits.endTolerance;
    };
    return MayBeCut(pipe, limits) && !isNear(piece.startPoint) && !isNear(piece.endPoint) &&
           (limits.history == nullptr || !limits.history->Holds(pipePool.IdOf(pipe), piece, point));
}

/// Straight pieces only ever get shorter, unless no place counts as an end.
bool PressureNetworkSearch::CouldBeCutWithoutEnd(int pipe, const CutLimits& limits) const {
    return pipePool.At(pipe).isArc != 0 || !(limits.endTolerance > 0.0);
}

bool PressureNetworkSearch::MayBeCut(int pipe, const CutLimits& limits) const {
    return limits.rest >= 0 || !CouldBeCutWithoutEnd(pipe, limits);
}

/// Replaces the pipe by two pieces at the end of the pool and gives the index of the first.
int PressureNetworkSearch::CutPipe(int pipe, const AcGePoint3d& point, CutLimits& limits) {
    if (limits.history != nullptr) {
        limits.history->Note(pipePool.IdOf(pipe), pipePool.At(pipe), point);
    }
    if (CouldBeCutWithoutEnd(pipe, limits)) {
        --limits.rest;
    } else {
        limits.straightRest -= 1.0;
    }
    const int first = pipePool.AddCopyOf(pipe);
    EndPieceAt(pipePool, first, point);
    const int second = pipePool.AddCopyOf(pipe);
    StartPieceAt(pipePool, second, point);
    pipePool.Remove(pipe);
    candidates_->PipeCut(pipe);
    candidates_->PieceAdded(first, pipe);
    candidates_->PieceAdded(second, pipe);
    return first;
}

} // namespace tkvlt
