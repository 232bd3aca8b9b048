#include "pressure/PipePieces.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "records/PipeBox.h"
#include "records/XdataKeys.h"

namespace tkvlt {

int PipePieces::Add(std::unique_ptr<_Pipe> pipe) {
    const PipePiece piece{pipe->startPoint, pipe->endPoint, pipe->isArc, pipe->orientationFlag};
    if (piece.isArc == 0) {
        return Add(pipe->id, piece);
    }
    AppendWhole(piece);
    return RecordPool::Add(std::move(pipe));
}

int PipePieces::Add(const AcDbObjectId& id, const PipePiece& piece) {
    AppendWhole(piece);
    return AddUnread(id);
}

void PipePieces::AppendWhole(const PipePiece& piece) {
    pieces_.push_back(piece);
    pieces_.back().drawn = wholePipes_++;
}

int PipePieces::AddCopyOf(int index) {
    const PipePiece piece = At(index);
    pieces_.push_back(piece);
    if (piece.isArc == 0) {
        return AddUnread(AcDbObjectId(IdOf(index)));
    }
    return RecordPool::Add((*this)[index]);
}

void PipePieces::Set(int index, const PipePiece& piece) {
    PipePiece& changed = pieces_[static_cast<std::size_t>(index)];
    const int drawn = changed.drawn;
    changed = piece;
    changed.drawn = drawn;
    if (piece.isArc == 0) {
        Forget(index);
        return;
    }
    _Pipe& record = RecordPool::operator[](index);
    record.startPoint = piece.startPoint;
    record.endPoint = piece.endPoint;
    record.orientationFlag = piece.orientationFlag;
}

PipeCurve PipePieces::CurveOf(int index) const {
    const PipePiece& piece = At(index);
    return piece.isArc != 0 ? PipeCurve{&ArcOf(index), {}} : PipeCurve{nullptr, piece.Chord()};
}

PlanBox PipePieces::BoxOf(int index) const {
    const PipePiece& piece = At(index);
    return PipeBox(piece.startPoint, piece.endPoint, piece.isArc != 0 ? &ArcOf(index) : nullptr);
}

/// A counting sort: each pipe tells how many entries it has, then where its own begin.
LargeVector<int> PipePieces::PlacesAsDrawn() const {
    LargeVector<int> next(static_cast<std::size_t>(wholePipes_));
    for (const PipePiece& piece : pieces_) {
        ++next[static_cast<std::size_t>(piece.drawn)];
    }
    std::exclusive_scan(next.begin(), next.end(), next.begin(), 0);
    LargeVector<int> places;
    places.reserve(pieces_.size());
    for (const PipePiece& piece : pieces_) {
        places.push_back(next[static_cast<std::size_t>(piece.drawn)]++);
    }
    return places;
}

void PipePieces::RestoreFirst(int size) {
    RecordPool::RestoreFirst(size);
    pieces_.resize(static_cast<std::size_t>(size));
}

void PipePieces::CloseUp() {
    std::size_t kept = 0;
    for (int i = 0; i < Size(); ++i) {
        if (Has(i)) {
            pieces_[kept++] = At(i);
        }
    }
    pieces_.resize(kept);
    pieces_.shrink_to_fit();
    RecordPool::CloseUp();
}

/// The entity tells what a piece has of the whole pipe.
void PipePieces::ReadRecord(_Pipe& record, int index) const {
    const PipePiece& piece = At(index);
    record = _Pipe(IdOf(index), XdataText(IdOf(index), xdata::kPipeSystem));
    record.startPoint = piece.startPoint;
    record.endPoint = piece.endPoint;
    record.line = piece.Chord();
    record.orientationFlag = piece.orientationFlag;
}

double RoundingSlack(const PipePieces& pipes) {
    double largest = 0.0;
    for (int i = 0; i < pipes.Size(); ++i) {
        const PipePiece& pipe = pipes.At(i);
        largest = std::max({largest, RoundingSlack(pipe.startPoint), RoundingSlack(pipe.endPoint)});
        if (pipe.isArc != 0) {
            largest = std::max(largest, RoundingSlack(pipes.ArcOf(i)));
        }
    }
    return largest;
}

} // namespace tkvlt
