#include "LowerCommand.h"

#include "HandleText.h"
#include "HeightChanges.h"
#include "JsonText.h"
#include "NetworkSearch.h"
#include "OutputFile.h"
#include "Progress.h"
#include "Refusal.h"
#include "svg/NetworkPicture.h"
#include "TextTable.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

using Changes = std::vector<HeightChange>;

Json heightJson(const CString& before, const CString& after) {
    return {{"before", textJson(before)}, {"after", textJson(after)}};
}

std::string lowerJson(int result, const Changes& changes) {
    Json changed = Json::array();
    for (const HeightChange& change : changes) {
        changed.push_back({{"entity", idJson(change.pipe)},
                           {"startElevation", heightJson(change.before.start, change.after.start)},
                           {"endElevation", heightJson(change.before.end, change.after.end)}});
    }
    std::string out;
    appendJson(out, {{"result", result}, {"changed", changed}});
    return out + '\n';
}

std::string lowerTable(int result, const Changes& changes, const std::string& path) {
    if (changes.empty()) {
        return fmt::format("No height has changed (result {}); nothing was written\n", result);
    }
    TextTable table(
        {{"Pipe"}, {"Start before", true}, {"after", true}, {"End before", true}, {"after", true}});
    for (const HeightChange& change : changes) {
        table.add({handleText(change.pipe), utf8(change.before.start), utf8(change.after.start),
                   utf8(change.before.end), utf8(change.after.end)});
    }
    return fmt::format("Heights of {} changed (result {}), in metres; written to {}\n\n{}",
                       counted(static_cast<std::ptrdiff_t>(changes.size()), "pipe", "pipes"),
                       result, path, table.text());
}

void drawLowering(const Drawing& drawing, const Changes& changes, const Options& options,
                  const AcDbObjectId& pipe) {
    const Progress progress("drawing " + options.svg);
    const SearchOutcome outcome = searchNetwork({pipe, AcDbObjectId(), AcGePoint3d()});
    std::vector<AcDbObjectId> lowered;
    for (const HeightChange& change : changes) {
        lowered.push_back(change.pipe);
    }
    drawScene(loweringScene(drawing, gravityNetwork(outcome), lowered), drawing.name(),
              options.svg);
}

} // namespace

Answer runLower(const Drawing& drawing, const Options& options) {
    Answer answer;
    const AcDbObjectId pipe = drawing.entity(options.pipe);
    const std::string path = outputPath(drawing, options);
    const HeightsBefore before(drawing);
    const Stopwatch watch;
    int result = 0;
    {
        const Progress progress("lowering pipes of " + drawing.name());
        result = LowerHeightForCollideTest(pipe, options.drop);
    }
    answer.timing.searchMs = watch.milliseconds();
    const Changes changes = before.changes();
    if (!options.svg.empty()) {
        drawLowering(drawing, changes, options, pipe);
    }
    if (!changes.empty()) {
        const Progress progress("writing " + path);
        drawing.save(path);
    }
    if (result == 0) {
        answer.refusal = lowerRefusal(pipe, !changes.empty(), path);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? lowerJson(result, changes) : lowerTable(result, changes, path);
    return answer;
}

} // namespace pipenet
