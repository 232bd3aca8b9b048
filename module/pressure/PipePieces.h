#pragma once

#include <memory>

#include "records/LargeVector.h"
#include "records/Pipe.h"
#include "records/PipeCrossing.h"
#include "records/PlanBox.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// Where a pipe or a piece of one lies: all that a search must know of a straight one. Names and
/// meanings are those of its record.
struct PipePiece {
    AcGePoint3d startPoint;
    AcGePoint3d endPoint;
    int isArc = 0; ///< the curve is the arc of the record
    int orientationFlag = 1;
    int drawn = 0; ///< the how manieth of the pipes that were added whole; pieces have their pipe's

    /// What the record of a straight one keeps as its line.
    AcGeLineSeg3d Chord() const { return {startPoint, endPoint}; }
};

/// The pipes of one system and the pieces that they are cut into, in pool order.
///
/// A record is several times as large as what it says of a straight pipe, and a search takes all
/// pipes of a system and cuts many. So only the record of an arc stands here; that of a straight
/// one is made when somebody looks at it, and forgotten when the pipe is changed. So the drawing
/// must stay as it is as long as records are looked at. What changes the pool goes through this
/// class.
class PipePieces : public RecordPool<_Pipe> {
public:
    /// Appends a whole pipe as its record tells it and returns its index.
    int Add(std::unique_ptr<_Pipe> pipe);
    /// Appends a straight pipe and returns its index.
    int Add(const AcDbObjectId& id, const PipePiece& piece);
    /// Appends a copy of an entry and returns its index.
    int AddCopyOf(int index);

    /// @param index any that was given since `CloseUp`, as for all that follows, also of an entry
    ///              that has been taken away since.
    const PipePiece& At(int index) const { return pieces_[static_cast<std::size_t>(index)]; }
    /// The entry stays one of the same pipe.
    void Set(int index, const PipePiece& piece);
    /// The curve of an entry that is an arc.
    AcGeCircArc3d& ArcOf(int index) { return RecordPool::operator[](index).arc; }
    const AcGeCircArc3d& ArcOf(int index) const { return (*this)[index].arc; }
    /// Valid until the pool changes.
    PipeCurve CurveOf(int index) const;
    /// The curve and the chord in plan.
    PlanBox BoxOf(int index) const;
    /// For every entry its place when all stand in the order of the drawing, the pieces of a pipe
    /// side by side.
    LargeVector<int> PlacesAsDrawn() const;

    /// The record of an entry; one that has been looked at stands until the entry changes.
    const _Pipe& operator[](int index) const { return RecordPool::operator[](index); }

    void RestoreFirst(int size);
    void CloseUp();

private:
    /// Appends the piece of a whole pipe, of which the pool knows nothing yet.
    void AppendWhole(const PipePiece& piece);
    void ReadRecord(_Pipe& record, int index) const override;

    LargeVector<PipePiece> pieces_; // by index
    int wholePipes_ = 0;            // that were added
};

/// What rounding may hide between two of these pipes, drawing units: they meet within a noise that
/// grows with the largest coordinate of either, height and arc centre included.
double RoundingSlack(const PipePieces& pipes);

} // namespace tkvlt
