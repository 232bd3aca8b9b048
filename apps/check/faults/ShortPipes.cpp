#include "faults/ShortPipes.h"

#include "records/Candidates.h"
#include "records/IgnoredPipe.h"
#include "records/Pipe.h"
#include "Systems.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

ShortPipes::ShortPipes(const SystemUnderCheck& under) {
    std::vector<tkvlt::PlanBox> ends;
    for (const CheckedEntity& entity : under.context.entities) {
        if (entity.kind != EntityKind::pipe || entity.system != under.system) {
            continue;
        }
        _Pipe pipe(entity.id, under.named().name);
        const double length = pipe.GetLength();
        if (!(length > tkvlt::kLongestIgnoredPipe)) {
            pipes_.push_back({entity.id, length, {pipe.startPoint, pipe.endPoint}});
            ends.push_back(tkvlt::PlanBox::Of(pipe.startPoint));
            ends.push_back(tkvlt::PlanBox::Of(pipe.endPoint));
        }
    }
    ends_ = tkvlt::BoxTree(ends);
}

void ShortPipes::report(SystemUnderCheck& under) const {
    for (const Short& pipe : pipes_) {
        Finding& finding = under.add("pipe-too-short", Severity::error);
        finding.entities = {pipe.id};
        finding.place = pipe.ends[0];
        finding.measured = metres(pipe.length);
        finding.limit = metres(tkvlt::kLongestIgnoredPipe);
        finding.unit = "m";
        finding.sentence =
            fmt::format("{} is {:.4g} m long, and a pipe takes part in a network only when it is "
                        "longer than {:.4g} m; draw it as one with its neighbour",
                        nameOf(pipe.id), *finding.measured, *finding.limit);
    }
}

bool ShortPipes::endNear(const AcGePoint3d& point, double reach) const {
    const tkvlt::Indices ends = tkvlt::Collected(ends_, tkvlt::PlanBox::Around(point, reach));
    return std::any_of(ends.begin(), ends.end(), [&](int end) {
        const Short& pipe = pipes_[static_cast<std::size_t>(end / 2)];
        return pipe.ends[end % 2].distanceTo(point) <= reach;
    });
}

} // namespace pipenet
