#include "HeightChanges.h"

#include "records/XdataKeys.h"

namespace pipenet {

namespace {

PipeHeightTexts heightsOf(const AcDbObjectId& pipe) {
    return {XdataText(pipe, xdata::kStartElevation), XdataText(pipe, xdata::kEndElevation)};
}

} // namespace

HeightsBefore::HeightsBefore(const Drawing& drawing) {
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        if (entity.kind == EntityKind::pipe) {
            pipes_.push_back({entity.id, heightsOf(entity.id), {}});
        }
    }
}

std::vector<HeightChange> HeightsBefore::changes() const {
    std::vector<HeightChange> changed;
    for (const HeightChange& pipe : pipes_) {
        const PipeHeightTexts after = heightsOf(pipe.pipe);
        if (after.start != pipe.before.start || after.end != pipe.before.end) {
            changed.push_back({pipe.pipe, pipe.before, after});
        }
    }
    return changed;
}

} // namespace pipenet
