// Finds where a segment's label belongs: half way along its chain of pipes, with the direction of
// the pipe there. The pipes are summed whole while the chain's length may be measured in parts, so
// the middle is that of the chain only nearly.

#include "gravity/GetPointOnArcAtDist.h"
#include "gravity/GravityNetworkSearch.h"

namespace tkvlt {

/// The ends of a pipe in the order in which the chain is counted.
struct PipeEnds {
    AcGePoint3d nearEnd;
    AcGePoint3d farEnd;
};

namespace {

constexpr double kQuarterTurn = 1.5707963267948966;

PipeEnds EndsSeenFrom(const PipeSite& pipe, const AcGePoint3d& reference) {
    if (pipe.endPoint.distanceTo(reference) > pipe.startPoint.distanceTo(reference)) {
        return {pipe.startPoint, pipe.endPoint};
    }
    return {pipe.endPoint, pipe.startPoint};
}

void AnnotateStraight(const PipeSite& pipe, const PipeEnds& ends, double distance,
                      AcGePoint3d& point, AcGeVector3d& vector) {
    point = ends.nearEnd + (ends.farEnd - ends.nearEnd).normal() * distance;
    vector = pipe.Chord().direction().normal();
}

/// The arc runs its own way, so a distance counted against it is turned round.
void AnnotateArc(const AcGeCircArc3d& arc, double length, const PipeEnds& ends, double distance,
                 AcGePoint3d& point, AcGeVector3d& vector) {
    const bool against =
        ends.nearEnd.distanceTo(arc.endPoint()) > ends.farEnd.distanceTo(arc.startPoint());
    const double alongArc = against ? length - distance : distance;
    if (GetPointOnArcAtDist(arc, alongArc, point) != Acad::eOk) {
        point = ends.farEnd + (ends.nearEnd - ends.farEnd) * 0.5;
    }
    const AcGeVector3d upwards(0.0, 0.0, 1.0);
    vector = (point - arc.center()).rotateBy(kQuarterTurn, upwards).normal();
}

} // namespace

void GravityNetworkSearch::AnnotateOnPipe(int pipe, const PipeEnds& ends, double distance,
                                          AcGePoint3d& point, AcGeVector3d& vector) {
    if (Site(pipe).isArc == 0) {
        AnnotateStraight(Site(pipe), ends, distance, point, vector);
    } else {
        AnnotateArc(pipePool[pipe].arc, PipeLength(pipe), ends, distance, point, vector);
    }
}

int GravityNetworkSearch::PlaceAnnotation(AcGePoint3d& point, AcGeVector3d& vector,
                                          AcGePoint3d reference) {
    const int pipeCount = static_cast<int>(chainPipes.GetSize());
    if (pipeCount == 1) {
        const int pipe = chainPipes.GetAt(0);
        AnnotateOnPipe(pipe, {Site(pipe).startPoint, Site(pipe).endPoint}, PipeLength(pipe) * 0.5,
                       point, vector);
        return 1;
    }
    double half = chainLength * 0.5;
    for (int i = 0; i < pipeCount; ++i) {
        const int pipe = chainPipes.GetAt(i);
        const double length = PipeLength(pipe);
        half -= length;
        if (half < 0.0) {
            AnnotateOnPipe(pipe, EndsSeenFrom(Site(pipe), reference), half + length, point, vector);
            return 1;
        }
    }
    return 0;
}

} // namespace tkvlt
