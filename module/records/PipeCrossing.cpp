#include "records/PipeCrossing.h"

namespace tkvlt {

namespace {

PipeCurve CurveOf(const _Pipe& pipe) {
    return {pipe.isArc != 0 ? &pipe.arc : nullptr, pipe.line};
}

} // namespace

PipeCrossing CrossingOf(const PipeCurve& first, const PipeCurve& second) {
    PipeCrossing crossing;
    AcGePoint3d otherPoint;
    int count = -1;
    int met = 0;
    if (first.arc != nullptr && second.arc != nullptr) {
        met = first.arc->intersectWith(*second.arc, count, crossing.point, otherPoint);
    } else if (first.arc != nullptr) {
        met = first.arc->intersectWith(second.line, count, crossing.point, otherPoint);
    } else if (second.arc != nullptr) {
        met = second.arc->intersectWith(first.line, count, crossing.point, otherPoint);
    } else {
        met = first.line.intersectWith(second.line, crossing.point);
    }
    crossing.hit = met == 1 && count != 2;
    return crossing;
}

PipeCrossing CrossingOf(const _Pipe& first, const _Pipe& second) {
    return CrossingOf(CurveOf(first), CurveOf(second));
}

} // namespace tkvlt
