#pragma once

#include "Export.h"
#include "platform.h"

/// An edge of a gravity network: a run of pipe between two wells or tanks, drawn as one or several
/// pipe entities. Points and lengths are drawing units, elevations metres.
///
/// Copy construction and assignment take a non-const reference and copy the same fields;
/// assignment does not test for self-assignment.
class TKVLT_API GravitySeg {
public:
    /// The defaults of the fields; `extraValue4` alone is left as it was found.
    GravitySeg();
    GravitySeg(GravitySeg& other);            ///< copies every field
    GravitySeg& operator=(GravitySeg& other); ///< copies every field
    ~GravitySeg();

    /// Measures straight between the two node positions, stores the result in `length` and returns
    /// it. With length setting 1 each tank deducts half its "长度" as it stands; with 0 each well
    /// and tank deducts its half size; any other setting gives 0.0. Never clamped at zero.
    double GetLength();

    AcArray<AcDbObjectId> pipeIds{0, 8}; ///< the pipe entities of this segment
    int startWell = -1;                  ///< index of the node at the start
    int endWell = -1;                    ///< index of the node at the end
    AcGePoint3d startPoint;              ///< position of the start node
    AcGePoint3d endPoint;                ///< position of the end node
    AcDbObjectId startEntity;            ///< block of the start node
    AcDbObjectId endEntity;              ///< block of the end node
    double startElevation = 0.0;         ///< at the start
    double endElevation = 0.0;           ///< at the end
    double slope = 0.0;                  ///< "坡度" as a number
    int diameter = 0;                    ///< millimetres
    CString flowText;                    ///< "水流方向" as read
    CString material;                    ///< "管材" as read
    CString systemName;                  ///< the network's system name
    /// Five values for sibling modules: only constructed and copied here.
    double extraValue1 = 0.0;
    double extraValue2 = 0.0;  ///< for sibling modules
    double extraValue3 = 0.0;  ///< for sibling modules
    double extraValue4;        ///< for sibling modules
    double extraValue5 = 0.0;  ///< for sibling modules
    int flowReversed = 1;      ///< 0 when the water runs from `startPoint` to `endPoint`, else 1
    double length = 0.0;       ///< drawing units
    AcGePoint3d annotatePoint; ///< the point at which the segment is annotated
    AcGeVector3d annotateVector{0.0, 0.0, 0.0}; ///< unit direction of the annotation
};
