#include "SegmentsCommand.h"

#include "HandleText.h"
#include "JsonRecords.h"
#include "Progress.h"
#include "Refusal.h"
#include "Systems.h"
#include "TextTable.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

using Segs = CArray<Seg, Seg&>;

std::string segmentsJson(Segs& segs, int result) {
    std::string out;
    JsonObject answer(out);
    answer.add("result", result);
    appendItems(answer.begin("segs"), segs.GetSize(), [&](INT_PTR i) {
        JsonObject object(out);
        addSeg(object, segs[i]);
        object.close();
    });
    answer.close();
    return out + '\n';
}

std::string endText(const AcDbObjectId& entity) {
    return entity.isNull() ? "open" : handleText(entity);
}

std::vector<std::string> cells(INT_PTR number, Seg& seg) {
    const std::string first = fmt::format("{}", number);
    if (seg.kind == kGravityFlow && seg.gravity.pipeIds.length() > 0) {
        const GravitySeg& built = seg.gravity;
        return {first,
                "gravity",
                utf8(built.systemName),
                endText(built.startEntity),
                endText(built.endEntity),
                fmt::format("{:.2f}", metres(built.length)),
                fmt::format("DN{}", built.diameter),
                handlesText(built.pipeIds)};
    }
    if (seg.kind == kPressureFlow) {
        return {first,
                "pressure",
                utf8(seg.pressure.systemName),
                "",
                "",
                fmt::format("{:.2f}", metres(seg.pressure.GetLength())),
                fmt::format("DN{}", seg.pressure.diameter),
                handlesText(seg.pressure.pipeIds)};
    }
    return {first, seg.kind == kGravityFlow ? "gravity" : "unknown", "", "", "", "", "", "none"};
}

std::string segmentsTable(Segs& segs) {
    TextTable table({{"Segment", true},
                     {"Kind"},
                     {"System"},
                     {"Start"},
                     {"End"},
                     {"Length m", true},
                     {"Size"},
                     {"Pipes"}});
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        table.add(cells(i, segs[i]));
    }
    return table.text();
}

/// The first pipe of a system that the settings do not know; the null id for none.
AcDbObjectId unknownPipe(const AcDbObjectIdArray& pipes) {
    for (int i = 0; i < pipes.length(); ++i) {
        if (flowKindOfPipe(pipes[i]) == kUnknownFlow) {
            return pipes[i];
        }
    }
    return {};
}

} // namespace

Answer runSegments(const Drawing& drawing, const Options& options) {
    Answer answer;
    const Progress progress("building segments of " + drawing.name());
    AcDbObjectIdArray pipes;
    for (const AcDbHandle& handle : options.pipes) {
        pipes.append(drawing.entity(handle));
    }
    const Stopwatch watch;
    Segs segs;
    const int result = GetSegsForCollideTest(segs, pipes, options.unique ? 1 : 0);
    answer.timing.searchMs = watch.milliseconds();
    if (const AcDbObjectId unknown = unknownPipe(pipes); !unknown.isNull()) {
        answer.refusal = segmentRefusal(unknown, kUnknownFlow);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? segmentsJson(segs, result) : segmentsTable(segs);
    return answer;
}

} // namespace pipenet
