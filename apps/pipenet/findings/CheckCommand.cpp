#include "findings/CheckCommand.h"

#include "CheckDrawing.h"
#include "findings/CheckGeoJson.h"
#include "findings/CheckJson.h"
#include "findings/CheckTable.h"
#include "HandleText.h"
#include "Messages.h"
#include "OutputFile.h"
#include "Progress.h"
#include "report/HtmlReport.h"
#include "Systems.h"

#include <algorithm>

namespace pipenet {

namespace {

/// The systems of the drawing's pipes, wells and tanks, in order of first occurrence.
std::vector<std::string> systemNames(const Drawing& drawing) {
    std::vector<std::string> names;
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        const bool isTank = entity.kind == EntityKind::tank;
        const std::string name = utf8(isTank ? systemNameOf(entity.id) : entity.systemName);
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names;
}

/// "none", "污水", "污水 and 雨水", "污水, 雨水 and 给水".
std::string listed(const std::vector<std::string>& names) {
    std::string text = names.empty() ? "none" : "";
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isLast = i + 1 == names.size();
        text += (i == 0 ? "" : isLast ? " and " : ", ") + names[i];
    }
    return text;
}

std::string unknownSystem(const Drawing& drawing, const std::string& system) {
    const std::vector<std::string> names = systemNames(drawing);
    const bool isKnown =
        system.empty() || std::find(names.begin(), names.end(), system) != names.end();
    return isKnown ? std::string() : textOf(messages::kNoSuchSystem, system, listed(names));
}

std::string reportText(const Drawing& drawing, const CheckReport& report, Format format) {
    switch (format) {
    case Format::json:
        return checkJson(report);
    case Format::geojson:
        return checkGeoJson(drawing.name(), report);
    case Format::html:
        return htmlReport(drawing, report);
    case Format::table:
        break;
    }
    return checkTable(drawing.name(), report);
}

bool hasErrors(const CheckReport& report) {
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [](const Finding& each) { return each.severity == Severity::error; });
}

} // namespace

Answer runCheck(const Drawing& drawing, const Options& options) {
    Answer answer;
    if (!options.output.empty()) {
        answer.file = outputPath(drawing, options);
    }
    const Stopwatch watch;
    const Progress progress("checking " + drawing.name());
    answer.refusal = unknownSystem(drawing, options.system);
    if (!answer.refusal.empty()) {
        answer.file.clear();
        return answer;
    }
    const CheckReport report = checkDrawing(options.system);
    answer.timing.searchMs = watch.milliseconds();
    answer.isJson = options.format == Format::json || options.format == Format::geojson;
    answer.text = reportText(drawing, report, options.format);
    if (hasErrors(report)) {
        answer.refusal = textOf(messages::kErrorsFound, drawing.name(), findingsSummary(report));
    }
    return answer;
}

} // namespace pipenet
