#pragma once

#include "Export.h"
#include "platform.h"

/// A run of pressure pipe: one pipe entity, or several that continue one another in a straight line
/// or on one circle, with its place in the tree of segments and the fittings that lie on it.
///
/// Points and lengths are drawing units, elevations metres, the diameter millimetres. The begin
/// point is the end by which the walk reached the segment, the search point the other one. Copy
/// construction and assignment take a non-const reference and copy every field but `lengthMode`:
/// a copy-constructed segment has an undefined `lengthMode`, an assigned one keeps its own. Nothing
/// in this module reads it. `parent` and `children` are meaningless outside the array of the
/// search.
class TKVLT_API PressureSeg {
public:
    /// The defaults of the fields; asks for the pipe length setting.
    PressureSeg();
    PressureSeg(PressureSeg& other);            ///< leaves `lengthMode` undefined
    PressureSeg& operator=(PressureSeg& other); ///< keeps its own `lengthMode`
    ~PressureSeg();

    /// The end at which the walk goes on.
    AcGePoint3d GetSearchPoint();
    /// The end by which the walk reached the segment.
    AcGePoint3d GetBeginPoint();

    /// Puts a meter well into its place by straight-line distance from the begin point; behind
    /// those at the same distance.
    void InsertMeterWell(AcGePoint3d point, AcDbObjectId id);
    /// The same for a valve well.
    void InsertValveWell(AcGePoint3d point, AcDbObjectId id);
    /// The same for an outlet with its value.
    void InsertOutputPoint(AcGePoint3d point, AcDbObjectId id, double value);

    /// Nonzero when `point` is at most ten millimetres of the real network from the segment.
    int PtOnSeg(AcGePoint3d point);
    /// Length of the arc, or the straight distance between the two ends; `line` is not consulted.
    double GetLength();
    /// Unit vector in which a label is laid out: along `line`, or the tangent at the label's point.
    AcGeVector3d GetAnnnotateVector();
    /// The point at which a label is placed: half way along the arc, or the middle of the chord.
    AcGePoint3d GetAnnoatePoint();

    AcDbObjectIdArray pipeIds{0, 8};   ///< in walking order; the first one's texts are carried
    CArray<int, int> orientationFlags; ///< per pipe: 1 a whole entity, 0 a piece cut off one
    AcGePoint3d startPoint;            ///< first end as drawn
    AcGePoint3d endPoint;              ///< second end as drawn
    int parent = -1;           ///< index of the segment this one hangs from; -1 for the root
    CArray<int, int> children; ///< indices of the segments at this one's search point
    int reversed = 0;          ///< 0: `startPoint` is the begin point; else `endPoint` is
    CArray<AcGePoint3d, AcGePoint3d> valvePoints; ///< by distance from the begin point
    CArray<AcGePoint3d, AcGePoint3d> meterPoints; ///< by distance from the begin point
    AcDbObjectIdArray valveIds{0, 8};             ///< parallel to `valvePoints`
    AcDbObjectIdArray meterIds{0, 8};             ///< parallel to `meterPoints`
    double startElevation = 0.0; ///< at the begin point; at the upstream end of a single build
    double endElevation = 0.0;   ///< at the other end
    double slope = 0.0;          ///< "坡度" as a number
    int diameter = 0;            ///< millimetres
    CString flowText;            ///< "水流方向" as read
    CString material;            ///< "管材" as read
    CString systemName;          ///< of the network
    CArray<AcGePoint3d, AcGePoint3d> outputPoints; ///< by distance from the begin point
    CArray<double, double> outputValues;           ///< parallel to `outputPoints`
    CArray<AcDbObjectId, AcDbObjectId> outputIds;  ///< parallel to `outputPoints`
    double callerValueA = 0.0;                     ///< the caller's: only copied here
    double callerValueB = 0.0;                     ///< the caller's: only copied here
    int isArc = 0;                                 ///< nonzero when the segment is a circular arc
    AcGeCircArc3d arc;                             ///< the curve when `isArc` is nonzero
    AcGeLineSeg3d line;                            ///< the straight form, kept for arcs too
    int lengthMode; ///< the pipe length setting at default construction

private:
    /// Allowance for two wells, millimetres: half of both diameters, or the whole first one when
    /// `second` is null; 0.0 when `first` is null. Touches no field.
    double GetCacuWellLength(const AcDbObjectId& first, const AcDbObjectId& second);
};
