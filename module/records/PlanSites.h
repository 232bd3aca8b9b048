#pragma once

#include "platform.h"

namespace tkvlt {

/// Where a pipe lies: what a search must know of every pipe of the drawing.
struct PipeSite {
    AcGePoint3d startPoint;
    AcGePoint3d endPoint;
    int isArc = 0; ///< the curve leaves the straight line, and only the record knows where to
};

/// Where a well lies and how wide it is.
struct WellSite {
    AcGePoint3d position;
    double radius = 0.0; ///< drawing units
    int isSquareWell = 0;
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
    /// True for a block reference; all of `site` but the shape is written then, and its definition.
    /// False leaves the question to the well's record.
    bool IsWellBlock(WellSite& site, AcDbObjectId& definition) const;

private:
    AcDbObject* object_ = nullptr;
};

} // namespace tkvlt
