#pragma once

#include "platform.h"
#include "records/Block.h"
#include "records/FetchAhead.h"
#include "records/RecordPool.h"
#include "records/SystemNames.h"
#include "records/WellShape.h"

namespace tkvlt {

/// Where a pipe lies: what a search must know of every pipe of the drawing. Names and meanings are
/// those of its record.
///
/// On one line of the processor's cache: a search looks at sites all over the drawing.
struct alignas(kCacheLine) PipeSite {
    AcGePoint3d startPoint;
    AcGePoint3d endPoint;
    AcDbObjectId id;
    int system = 0; ///< the number of its name
    int isArc = 0;  ///< the curve leaves the straight line, and only the record knows where to

    /// What the record keeps as its line.
    AcGeLineSeg3d Chord() const { return {startPoint, endPoint}; }
};

/// Where a well lies and how wide it is.
struct WellSite {
    AcGePoint3d position;
    AcDbObjectId id;
    double radius = 0.0; ///< drawing units
    int isSquareWell = 0;
    int system = 0; ///< the number of its name
};

/// What many sites of a drawing have in common, each kept once.
struct SharedTraits {
    SystemNames systems;
    WellShapes wellShapes;
};

/// An entity open for reading until it is closed or this ends.
class ReadEntity {
public:
    explicit ReadEntity(const AcDbObjectId& id);
    ReadEntity(const ReadEntity&) = delete;
    ReadEntity& operator=(const ReadEntity&) = delete;
    ~ReadEntity();

    explicit operator bool() const { return object_ != nullptr; }
    const AcDbObject* get() const { return object_; }
    /// Before the entity's record is read: that opens it for itself.
    void Close();

    /// True for a straight curve that is certainly longer than `length`; `site` is written then.
    /// False leaves the question to the pipe's record.
    bool IsStraightAndLonger(double length, PipeSite& site) const;
    /// True for a block reference; all of `site` but the system is written then. False leaves the
    /// question to the well's record.
    bool IsWellBlock(WellSite& site, WellShapes& wellShapes) const;

private:
    AcDbObject* object_ = nullptr;
};

/// Gives the record of a well that is a block reference what is known of it from its site, the
/// position included; the rest is what `ReadBlockReference` reads.
void FillFromSite(const WellSite& site, const SystemNames& systems, _Block& well);

/// Appends the well `id` of a system to the pool and tells where it lies. The record of a block is
/// read when it is first looked at, if `readsLater`; that of anything else now.
WellSite AddWellTo(RecordPool<_Block>& pool, const AcDbObjectId& id, ReadEntity& entity,
                   const CString& system, SharedTraits& traits, bool readsLater);

} // namespace tkvlt
