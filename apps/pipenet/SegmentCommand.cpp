#include "SegmentCommand.h"

#include "gravity/GravityNetworkSearch.h"
#include "JsonRecords.h"
#include "NetworkTable.h"
#include "pressure/BuildSingleSeg.h"
#include "PressureTable.h"
#include "Progress.h"
#include "records/XdataKeys.h"
#include "Refusal.h"
#include "Systems.h"

namespace pipenet {

namespace {

/// The build of one pipe's stretch and what it left.
struct SegmentOutcome {
    int result = 0;
    int kind = -1; ///< flow kind of the pipe's system
    GravitySeg gravity;
    PressureSeg pressure;
};

int buildGravity(GravitySeg& seg, const AcDbObjectId& pipe, const CString& system) {
    AcDbObjectId start;
    AcDbObjectId end;
    AcGePoint3d point;
    tkvlt::GravityNetworkSearch search(nullptr, start, end, point);
    search.CollectEntitiesOnly();
    return search.BuildSinglePipeSeg(seg, pipe, system);
}

void buildSegment(SegmentOutcome& outcome, const AcDbObjectId& pipe) {
    const CString system = XdataText(pipe, xdata::kPipeSystem);
    outcome.kind = PelGetDirectionSytle(system);
    if (outcome.kind == kGravityFlow) {
        outcome.result = buildGravity(outcome.gravity, pipe, system);
    } else if (outcome.kind == kPressureFlow) {
        outcome.result = tkvlt::BuildSingleSeg(outcome.pressure, pipe);
    }
}

std::string segmentJson(SegmentOutcome& outcome) {
    const bool isGravity = outcome.kind == kGravityFlow;
    const bool isPressure = outcome.kind == kPressureFlow;
    std::string out;
    appendJson(out, {{"result", outcome.result},
                     {"kind", outcome.kind},
                     {"gravity", isGravity ? gravitySegJson(outcome.gravity) : Json(nullptr)},
                     {"pressure", isPressure ? pressureSegJson(outcome.pressure) : Json(nullptr)}});
    return out + '\n';
}

std::string outcomeTable(SegmentOutcome& outcome) {
    if (outcome.kind == kPressureFlow) {
        return pressureSegmentTable(outcome.pressure);
    }
    if (outcome.kind != kGravityFlow) {
        return "No segment (result 0)\n";
    }
    return segmentTable(outcome.gravity, outcome.result);
}

} // namespace

Answer runSegment(const Drawing& drawing, const Options& options) {
    Answer answer;
    const Progress progress("building a segment of " + drawing.name());
    const AcDbObjectId pipe = drawing.entity(options.pipe);
    const Stopwatch watch;
    SegmentOutcome outcome;
    buildSegment(outcome, pipe);
    answer.timing.searchMs = watch.milliseconds();
    if (outcome.result == 0) {
        answer.refusal = segmentRefusal(pipe, outcome.kind);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? segmentJson(outcome) : outcomeTable(outcome);
    return answer;
}

} // namespace pipenet
