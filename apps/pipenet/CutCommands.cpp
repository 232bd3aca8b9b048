#include "CutCommands.h"

#include "CurveChanges.h"
#include "Failure.h"
#include "HandleText.h"
#include "JsonText.h"
#include "OpenedObject.h"
#include "OutputFile.h"
#include "Progress.h"
#include "svg/NetworkPicture.h"
#include "TextTable.h"

#include <fmt/format.h>
#include <functional>

namespace pipenet {

namespace {

/// The entity with this handle, which must be of a class.
template<class Class>
AcDbObjectId entityOf(const Drawing& drawing, const AcDbHandle& handle, const Message& otherwise) {
    const AcDbObjectId id = drawing.entity(handle);
    if (!siblings::OpenedObject<Class>(id, AcDb::kForRead)) {
        throw Failure(otherwise, drawing.path(), handleText(handle));
    }
    return id;
}

template<class Class>
AcDbObjectIdArray linesOf(const Drawing& drawing, const Options& options,
                          const Message& otherwise) {
    AcDbObjectIdArray lines;
    for (const AcDbHandle& handle : options.lines) {
        lines.append(entityOf<Class>(drawing, handle, otherwise));
    }
    return lines;
}

Json endJson(const AcGePoint3d& before, const AcGePoint3d& after) {
    return {{"before", pointJson(before)}, {"after", pointJson(after)}};
}

std::string changesJson(const CurveChanges& changes) {
    Json json{{"changed", Json::array()}, {"new", Json::array()}, {"erased", Json::array()}};
    for (const ChangedCurve& curve : changes.changed) {
        json["changed"].push_back({{"entity", idJson(curve.curve)},
                                   {"start", endJson(curve.before.start, curve.after.start)},
                                   {"end", endJson(curve.before.end, curve.after.end)}});
    }
    for (const AcDbObjectId& id : changes.added) {
        const CurveEnds ends = endsOf(id);
        json["new"].push_back({{"entity", idJson(id)},
                               {"start", pointJson(ends.start)},
                               {"end", pointJson(ends.end)}});
    }
    for (const AcDbObjectId& id : changes.erased) {
        json["erased"].push_back(idJson(id));
    }
    std::string out;
    appendJson(out, json);
    return out + '\n';
}

std::string placeText(const AcGePoint3d& point) {
    return fmt::format("{:.3f}, {:.3f}", point.x, point.y);
}

std::string changesTable(const CurveChanges& changes, const std::string& path) {
    if (changes.isEmpty()) {
        return "Nothing to cut; nothing was written\n";
    }
    TextTable table({{"Line"}, {""}, {"Start"}, {"End"}});
    for (const ChangedCurve& curve : changes.changed) {
        table.add({handleText(curve.curve), "cut", placeText(curve.after.start),
                   placeText(curve.after.end)});
    }
    for (const AcDbObjectId& id : changes.added) {
        const CurveEnds ends = endsOf(id);
        table.add({handleText(id), "new", placeText(ends.start), placeText(ends.end)});
    }
    for (const AcDbObjectId& id : changes.erased) {
        table.add({handleText(id), "erased", "", ""});
    }
    return fmt::format(
        "{} cut, {}; written to {}\n\n{}",
        counted(static_cast<std::ptrdiff_t>(changes.changed.size()), "line", "lines"),
        counted(static_cast<std::ptrdiff_t>(changes.added.size()), "new piece", "new pieces"), path,
        table.text());
}

/// Cuts, writes the drawing when anything changed, and reports.
Answer cutAndReport(const Drawing& drawing, const Options& options, const AcDbObjectIdArray& lines,
                    const std::function<void()>& cut) {
    Answer answer;
    const std::string path = outputPath(drawing, options);
    const CurvesBefore before(drawing, lines);
    const Stopwatch watch;
    {
        const Progress progress("cutting lines of " + drawing.name());
        cut();
    }
    answer.timing.searchMs = watch.milliseconds();
    const CurveChanges changes = before.changes();
    if (!options.svg.empty()) {
        const Progress progress("drawing " + options.svg);
        drawScene(cutScene(drawing, changes), drawing.name(), options.svg);
    }
    if (!changes.isEmpty()) {
        const Progress progress("writing " + path);
        drawing.save(path);
    }
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? changesJson(changes) : changesTable(changes, path);
    return answer;
}

} // namespace

Answer runBreak(const Drawing& drawing, const Options& options) {
    const AcDbObjectIdArray lines = linesOf<AcDbLine>(drawing, options, messages::kNoLine);
    return cutAndReport(drawing, options, lines, [&lines] {
        AcDbObjectIdArray broken = lines;
        PelBreakLine(broken);
    });
}

Answer runTrim(const Drawing& drawing, const Options& options) {
    const AcDbObjectId block =
        entityOf<AcDbBlockReference>(drawing, options.block, messages::kNoBlock);
    const AcDbObjectIdArray lines = linesOf<AcDbCurve>(drawing, options, messages::kNoCurve);
    return cutAndReport(drawing, options, lines, [&lines, &block] {
        for (int i = 0; i < lines.length(); ++i) {
            PelBlockTrimLine(lines[i], block);
        }
    });
}

} // namespace pipenet
