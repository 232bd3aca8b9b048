#include "pressure/PressureSeg.h"

#include "gravity/GetPointOnArcAtDist.h"
#include "records/XdataKeys.h"

namespace {

constexpr double kQuarterTurn = 1.5707963267948966;

/// Where an item at `distance` from `begin` belongs in a list sorted by that distance: in front of
/// the first that is strictly farther, else at the end.
int PlaceByDistance(const CArray<AcGePoint3d, AcGePoint3d>& points, const AcGePoint3d& begin,
                    double distance) {
    const int size = static_cast<int>(points.GetSize());
    for (int i = 0; i < size; ++i) {
        if (begin.distanceTo(points.GetAt(i)) > distance) {
            return i;
        }
    }
    return size;
}

/// Puts a point into its place and tells which place that was.
int InsertPoint(CArray<AcGePoint3d, AcGePoint3d>& points, const AcGePoint3d& begin,
                const AcGePoint3d& point) {
    const int place = PlaceByDistance(points, begin, point.distanceTo(begin));
    points.InsertAt(place, point);
    return place;
}

/// Puts an id beside its point. That of the last point goes to the end of its list, also where a
/// caller has left the list shorter than the points.
void InsertId(AcDbObjectIdArray& ids, const CArray<AcGePoint3d, AcGePoint3d>& points, int place,
              const AcDbObjectId& id) {
    if (ids.physicalLength() == 0) {
        ids.setPhysicalLength(1); // few segments have several
    }
    if (place == points.GetUpperBound()) {
        ids.append(id);
    } else {
        ids.insertAt(place, id);
    }
}

double WellDiameter(const AcDbObjectId& id) {
    return NumberPrefix(XdataText(id, xdata::kWellDiameter));
}

} // namespace

PressureSeg::PressureSeg() : lengthMode(GetPipeCalLongType()) {}

PressureSeg::PressureSeg(PressureSeg& other) : lengthMode(0) {
    *this = other;
}

PressureSeg&
PressureSeg::operator=(PressureSeg& other) { // NOLINT(bugprone-unhandled-self-assignment)
    pipeIds = other.pipeIds;
    orientationFlags.Copy(other.orientationFlags);
    startPoint = other.startPoint;
    endPoint = other.endPoint;
    parent = other.parent;
    children.Copy(other.children);
    reversed = other.reversed;
    valvePoints.Copy(other.valvePoints);
    meterPoints.Copy(other.meterPoints);
    valveIds = other.valveIds;
    meterIds = other.meterIds;
    startElevation = other.startElevation;
    endElevation = other.endElevation;
    slope = other.slope;
    diameter = other.diameter;
    flowText = other.flowText;
    material = other.material;
    systemName = other.systemName;
    outputPoints.Copy(other.outputPoints);
    outputValues.Copy(other.outputValues);
    outputIds.Copy(other.outputIds);
    callerValueA = other.callerValueA;
    callerValueB = other.callerValueB;
    isArc = other.isArc;
    arc = other.arc;
    line = other.line;
    return *this;
}

PressureSeg::~PressureSeg() = default;

AcGePoint3d PressureSeg::GetSearchPoint() {
    return reversed != 0 ? startPoint : endPoint;
}

AcGePoint3d PressureSeg::GetBeginPoint() {
    return reversed != 0 ? endPoint : startPoint;
}

void PressureSeg::InsertMeterWell(AcGePoint3d point, AcDbObjectId id) {
    InsertId(meterIds, meterPoints, InsertPoint(meterPoints, GetBeginPoint(), point), id);
}

void PressureSeg::InsertValveWell(AcGePoint3d point, AcDbObjectId id) {
    InsertId(valveIds, valvePoints, InsertPoint(valvePoints, GetBeginPoint(), point), id);
}

void PressureSeg::InsertOutputPoint(AcGePoint3d point, AcDbObjectId id, double value) {
    const int place = InsertPoint(outputPoints, GetBeginPoint(), point);
    outputIds.InsertAt(place, id);
    outputValues.InsertAt(place, value);
}

int PressureSeg::PtOnSeg(AcGePoint3d point) {
    AcGeTol tolerance;
    tolerance.setEqualPoint(10.0 / GetVZDrawScale());
    return isArc != 0 ? arc.isOn(point, tolerance) : line.isOn(point, tolerance);
}

double PressureSeg::GetLength() {
    if (isArc != 0) {
        return arc.length(arc.startAng(), arc.endAng(), AcGeContext::gTol.equalPoint());
    }
    return startPoint.distanceTo(endPoint);
}

AcGePoint3d PressureSeg::GetAnnoatePoint() {
    const AcGePoint3d chordMiddle = startPoint + 0.5 * (endPoint - startPoint);
    if (isArc == 0) {
        return chordMiddle;
    }
    AcGePoint3d point;
    const bool found = tkvlt::GetPointOnArcAtDist(arc, GetLength() * 0.5, point) == Acad::eOk;
    return found ? point : chordMiddle;
}

AcGeVector3d PressureSeg::GetAnnnotateVector() {
    AcGeVector3d vector;
    if (isArc == 0) {
        vector = line.direction();
    } else {
        vector = GetAnnoatePoint() - arc.center();
        vector.rotateBy(kQuarterTurn, AcGeVector3d(0.0, 0.0, 1.0));
    }
    return vector.normalize(AcGeContext::gTol);
}

double PressureSeg::GetCacuWellLength(const AcDbObjectId& first, const AcDbObjectId& second) {
    if (first.isNull()) {
        return 0.0;
    }
    double halves = WellDiameter(first) / 2.0;
    if (second.isNull()) {
        halves *= 2.0;
    } else {
        halves += WellDiameter(second) / 2.0;
    }
    return halves * 1000.0;
}
