#include "exchange/ImportCommand.h"

#include "exchange/ExchangeMessages.h"
#include "exchange/ModelDrawing.h"
#include "exchange/Notes.h"
#include "JsonText.h"
#include "OutputFile.h"
#include "Progress.h"
#include "SettingsCheck.h"
#include "Systems.h"
#include "TextTable.h"

namespace pipenet {

namespace {

constexpr const char* kUsualSewer = "雨水";
constexpr const char* kUsualMain = "给水";

std::string systemOf(const Options& options, const PipeModel& model) {
    if (!options.exchange.system.empty()) {
        return options.exchange.system;
    }
    return model.format == ModelFormat::swmm ? kUsualSewer : kUsualMain;
}

const char* flowText(int flow) {
    return flow == kGravityFlow    ? "flows by gravity"
           : flow == kPressureFlow ? "flows under pressure"
                                   : "is no system of theirs";
}

/// Why the system cannot take the model; empty when it can.
std::string flowRefusal(const std::string& path, const PipeModel& model,
                        const std::string& system) {
    const bool isSewer = model.format == ModelFormat::swmm;
    const int flow = PelGetDirectionSytle(CString(host_text::fromUtf8(system).c_str()));
    if (flow == (isSewer ? kGravityFlow : kPressureFlow)) {
        return {};
    }
    return textOf(messages::kWrongFlow, path, isSewer ? "SWMM" : "EPANET",
                  isSewer ? "by gravity" : "under pressure", system, flowText(flow),
                  pipeSystemsFile());
}

std::string summary(const Options& options, const std::string& system, const PipeModel& model,
                    const DrawnCounts& counts) {
    const char* format = model.format == ModelFormat::swmm ? "SWMM" : "EPANET";
    if (options.format == Format::json) {
        std::string text;
        appendJson(text, {{"result", 1},
                          {"model", format},
                          {"system", system},
                          {"wells", counts.wells},
                          {"tanks", counts.tanks},
                          {"pipes", counts.pipes},
                          {"output", options.output}});
        return text + "\n";
    }
    return fmt::format("{} model as {} and {} of {}, {}: written to {}\n", format,
                       counted(counts.pipes, "pipe", "pipes"),
                       counted(counts.wells, "well", "wells"), system,
                       counted(counts.tanks, "tank", "tanks"), options.output);
}

/// The reach of a pressure search: ends of pipes within it join.
LayoutUnits layoutUnits() {
    return {1000.0 / GetVZDrawScale(), GetDwgScale() * GetPipeBreakDist() * 2.0 * 2.0};
}

} // namespace

Answer runImport(const Options& options) {
    Answer answer;
    answer.isJson = options.format == Format::json;
    const std::string target = separateOutput(options);
    const Stopwatch watch;
    PipeModel model = readModel(options.drawing);
    answer.timing.loadMs = watch.milliseconds();
    const std::string system = systemOf(options, model);
    answer.refusal = flowRefusal(options.drawing, model, system);
    if (!answer.refusal.empty()) {
        answer.text = answer.isJson ? "{\"result\":0}\n" : "Nothing imported\n";
        return answer;
    }
    const Progress progress("drawing " + target);

    const LayoutUnits units = layoutUnits();
    const ModelLayout layout = layOut(model, units);
    const DrawnCounts counts = writeModelDrawing(
        model, layout, CString(host_text::fromUtf8(system).c_str()), units, target);

    answer.text = summary(options, system, model, counts);
    printNotes(model.notes);
    return answer;
}

} // namespace pipenet
