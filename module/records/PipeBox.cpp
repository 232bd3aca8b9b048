#include "records/PipeBox.h"

#include <algorithm>
#include <cmath>

namespace tkvlt {

namespace {

double LargestCoordinate(const AcGePoint3d& point) {
    return std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
}

} // namespace

double RoundingSlack(const RecordPool<_Pipe>& pipes) {
    // Well above the few units in the last place by which two curves may miss and still meet.
    constexpr double relativeSlack = 1e-14;
    double largest = 0.0;
    for (int i = 0; i < pipes.Size(); ++i) {
        const _Pipe& pipe = pipes[i];
        largest = std::max(
            {largest, LargestCoordinate(pipe.startPoint), LargestCoordinate(pipe.endPoint)});
        if (pipe.isArc != 0) {
            largest = std::max(largest, LargestCoordinate(pipe.arc.center()) + pipe.arc.radius());
        }
    }
    return largest * relativeSlack;
}

PlanBox PipeBox(const _Pipe& pipe) {
    PlanBox box = PlanBox::Of(pipe.startPoint);
    box.Include(PlanBox::Of(pipe.endPoint));
    if (pipe.isArc != 0) {
        box.Include(CircleBox(pipe.arc));
    }
    return box;
}

PlanBox CircleBox(const AcGeCircArc3d& arc) {
    return PlanBox::Around(arc.center(), arc.radius());
}

} // namespace tkvlt
