#include "pressure/PipePieces.h"

#include <algorithm>
#include <utility>

#include "records/PipeBox.h"
#include "records/XdataKeys.h"

namespace tkvlt {

int PipePieces::Add(std::unique_ptr<_Pipe> pipe) {
    const PipePiece piece{pipe->startPoint, pipe->endPoint, pipe->isArc, pipe->orientationFlag};
    if (piece.isArc == 0) {
        return Add(pipe->id, piece);
    }
    pieces_.push_back(piece);
    return RecordPool::Add(std::move(pipe));
}

int PipePieces::Add(const AcDbObjectId& id, const PipePiece& piece) {
    pieces_.push_back(piece);
    return AddUnread(id);
}

int PipePieces::AddCopyOf(int index) {
    const PipePiece piece = At(index);
    if (piece.isArc == 0) {
        return Add(AcDbObjectId(IdOf(index)), piece);
    }
    pieces_.push_back(piece);
    return RecordPool::Add((*this)[index]);
}

void PipePieces::Set(int index, const PipePiece& piece) {
    pieces_[static_cast<std::size_t>(index)] = piece;
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
