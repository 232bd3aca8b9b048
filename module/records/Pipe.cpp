#include "records/Pipe.h"

#include "records/ClosedAtEnd.h"
#include "records/PipeLength.h"

namespace {

/// Ends nearer than this, in drawing units, give no usable direction.
constexpr double kShortestDirectedPipe = 1.0;

void ReadPolylineShape(_Pipe& pipe, AcDbCurve* curve) {
    pipe.isPolyline = curve->isA()->isDerivedFrom(AcDbPolyline::desc()) ? 1 : 0;
    if (pipe.isPolyline == 0) {
        return;
    }
    auto* polyline = static_cast<AcDbPolyline*>(curve);
    if (polyline->segType(0) == AcDbPolyline::kArc) {
        pipe.isArc = 1;
        polyline->getArcSegAt(0, pipe.arc);
    }
}

} // namespace

_Pipe::_Pipe() : isPolyline(0) {}

_Pipe::_Pipe(_Pipe& other)
    : _Entity(other), startPoint(other.startPoint), endPoint(other.endPoint),
      direction(other.direction), angle(other.angle), isPolyline(other.isPolyline),
      isArc(other.isArc), line(other.line), arc(other.arc), orientationFlag(other.orientationFlag) {
}

_Pipe::_Pipe(AcDbObjectId id, CString systemName) : _Entity(id, systemName) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbCurve::desc(), false) != Acad::eOk) {
        return;
    }
    const tkvlt::ClosedAtEnd closing(object);
    auto* curve = static_cast<AcDbCurve*>(object);
    curve->getStartPoint(startPoint);
    curve->getEndPoint(endPoint);
    curve->layer(layer);
    line.set(startPoint, endPoint);
    ReadPolylineShape(*this, curve);

    if (startPoint.distanceTo(endPoint) < kShortestDirectedPipe) {
        return;
    }
    direction = (endPoint - startPoint).normalize();
    angle = direction.angleTo(AcGeVector3d(1.0, 0.0, 0.0));
    valid = 1;
}

_Pipe& _Pipe::operator=(const _Pipe& other) {
    if (this != &other) {
        _Entity::operator=(other);
        startPoint = other.startPoint;
        endPoint = other.endPoint;
        direction = other.direction;
        angle = other.angle;
        isPolyline = other.isPolyline;
        isArc = other.isArc;
        line = other.line;
        arc = other.arc;
        orientationFlag = other.orientationFlag;
    }
    return *this;
}

_Pipe::~_Pipe() = default;

double _Pipe::GetLength() {
    return GetLength(startPoint, endPoint);
}

double _Pipe::GetLength(AcGePoint3d p1, AcGePoint3d p2) {
    const AcGeCurve3d& curve =
        isArc != 0 ? static_cast<const AcGeCurve3d&>(arc) : static_cast<const AcGeCurve3d&>(line);
    return tkvlt::LengthAlong(curve, p1, p2);
}
