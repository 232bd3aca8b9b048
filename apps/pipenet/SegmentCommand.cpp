#include "SegmentCommand.h"

#include "JsonRecords.h"
#include "NetworkTable.h"
#include "PressureTable.h"
#include "Progress.h"
#include "Refusal.h"
#include "Systems.h"

namespace pipenet {

namespace {

std::string segmentJson(Seg& seg, int result) {
    std::string out;
    JsonObject object(out);
    object.add("result", result);
    addSeg(object, seg);
    object.close();
    return out + '\n';
}

std::string oneSegmentTable(Seg& seg, int result) {
    if (seg.kind == kPressureFlow) {
        return pressureSegmentTable(seg.pressure);
    }
    return seg.kind == kGravityFlow ? segmentTable(seg.gravity, result) : "No segment (result 0)\n";
}

} // namespace

Answer runSegment(const Drawing& drawing, const Options& options) {
    Answer answer;
    const Progress progress("building a segment of " + drawing.name());
    const AcDbObjectId pipe = drawing.entity(options.pipe);
    const Stopwatch watch;
    Seg seg;
    const int result = GetSingleSeg(seg, pipe);
    answer.timing.searchMs = watch.milliseconds();
    if (result == 0) {
        answer.refusal = segmentRefusal(pipe, seg.kind);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? segmentJson(seg, result) : oneSegmentTable(seg, result);
    return answer;
}

} // namespace pipenet
