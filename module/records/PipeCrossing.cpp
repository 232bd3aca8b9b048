#include "records/PipeCrossing.h"

namespace tkvlt {

PipeCrossing CrossingOf(const _Pipe& first, const _Pipe& second) {
    PipeCrossing crossing;
    AcGePoint3d otherPoint;
    int count = -1;
    int met = 0;
    if (first.isArc != 0 && second.isArc != 0) {
        met = first.arc.intersectWith(second.arc, count, crossing.point, otherPoint);
    } else if (first.isArc != 0) {
        met = first.arc.intersectWith(second.line, count, crossing.point, otherPoint);
    } else if (second.isArc != 0) {
        met = second.arc.intersectWith(first.line, count, crossing.point, otherPoint);
    } else {
        met = first.line.intersectWith(second.line, crossing.point);
    }
    crossing.hit = met == 1 && count != 2;
    return crossing;
}

} // namespace tkvlt
