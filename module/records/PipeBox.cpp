#include "records/PipeBox.h"

namespace tkvlt {

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
