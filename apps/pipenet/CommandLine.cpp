#include "CommandLine.h"

#include "ArgumentText.h"
#include "exchange/ExchangeArguments.h"
#include "Failure.h"

#include <algorithm>
#include <array>
#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <iostream>

namespace pipenet {

namespace {

/// The texts of the options as given; empty for one that is not there.
struct Texts {
    std::string drawing, settings, dwgScale, drawScale, breakDist, lengthMode;
    std::string format = "table";
    std::string start, end, pipe, pick, point, svg, pipes, target, drop, output, lines, block,
        system;
    ExchangeOptions exchange;
    bool timing = false;
    bool unique = false;
    bool inPlace = false;
};

constexpr std::array kSharedOptions{"--settings",    "--dwg-scale", "--draw-scale", "--break-dist",
                                    "--length-mode", "--format",    "--timing"};

constexpr auto kAbout =
    "Rebuilds municipal pipe networks from the loose entities of a CAD drawing (DXF).";

constexpr auto kNotes =
    "A HANDLE is the hexadecimal text of an entity's group 5. The options under Settings and "
    "Output\n"
    "that every command has may stand before or after the command, all others behind it.\n"
    "The answer goes to standard output, everything else to standard error.\n"
    "Exit status: 0 done; 1 the search said no, or a check found errors, with a sentence on\n"
    "standard error; 2 a usage error, an unknown handle, or an input or output that cannot be "
    "used.\n"
    "Settings folder: --settings, else the variable TKVLT_SYSTEM_PATH, else the folder installed\n"
    "beside the program. It holds SysCon/PipeLineSetting.Kdp and perhaps "
    "SysCon/DrawingSetting.Kdp.\n"
    "Examples:\n"
    "  pipenet --settings examples/settings info examples/town.dxf\n"
    "  pipenet --settings examples/settings search examples/town.dxf --pick 186,60 --svg town.svg\n"
    "  pipenet --settings examples/settings segment examples/town.dxf --pipe 304 --format json";

/// What every command can give.
constexpr std::array kForms{"table", "json"};
/// What a check can give.
constexpr std::array kReportForms{"table", "json", "geojson", "html"};

template<class Forms>
void addSharedOptions(CLI::App& app, Texts& texts, const Forms& forms) {
    const std::string group = "Settings";
    app.add_option("--settings", texts.settings, "Folder of the settings files")
        ->type_name("DIR")
        ->group(group);
    app.add_option("--dwg-scale", texts.dwgScale, "Drawing scale, for the reach of joints")
        ->type_name("X")
        ->group(group);
    app.add_option("--draw-scale", texts.drawScale,
                   "A drawing unit in millimetres: 1000 when it is one metre")
        ->type_name("X")
        ->group(group);
    app.add_option("--break-dist", texts.breakDist,
                   "Distance at which a pipe counts as merely broken")
        ->type_name("X")
        ->group(group);
    app.add_option("--length-mode", texts.lengthMode,
                   "How lengths are reckoned: 0 whole pipes, and from rim to rim where one "
                   "segment is asked for; 1 from centre to centre; any other number not at all")
        ->type_name("N")
        ->group(group);
    app.add_option("--format", texts.format, "Form of the answer, a table by default")
        ->type_name("FORMAT")
        ->check(CLI::IsMember(std::vector<std::string>(forms.begin(), forms.end())))
        ->group("Output");
    app.add_flag("--timing", texts.timing, "Add how long loading and searching took")
        ->group("Output");
}

template<class Forms = decltype(kForms)>
CLI::App* addCommand(CLI::App& app, const std::string& name, const std::string& about, Texts& texts,
                     const Forms& forms = kForms) {
    CLI::App* command = app.add_subcommand(name, about);
    command->add_option("drawing", texts.drawing, "The drawing, a DXF file")
        ->required()
        ->type_name("DRAWING");
    addSharedOptions(*command, texts, forms);
    return command;
}

void addPicture(CLI::App& command, Texts& texts) {
    command.add_option("--svg", texts.svg, "Draw the network into this file as well")
        ->type_name("FILE")
        ->group("Output");
}

void addOutput(CLI::App& command, Texts& texts) {
    command
        .add_option("--output", texts.output,
                    "Write the changed drawing into this file; this or --in-place is needed")
        ->type_name("FILE")
        ->group("Output");
    command.add_flag("--in-place", texts.inPlace, "Write the changes into the drawing itself")
        ->group("Output");
}

void addSearch(CLI::App& app, Texts& texts) {
    CLI::App* search = addCommand(
        app, "search", "Rebuild the network around an entity, and the path to another", texts);
    addStartOptions(*search, {texts.start, texts.pick, texts.point});
    search->add_option("--end", texts.end, "Well, tank or pipe at which a path ends")
        ->type_name("HANDLE");
    addPicture(*search, texts);
}

void addSegments(CLI::App& app, Texts& texts) {
    CLI::App* segments =
        addCommand(app, "segments", "Build the stretches around several pipes", texts);
    segments->add_option("--pipes", texts.pipes, "The pipes, with commas between them")
        ->required()
        ->type_name("H1,H2,...");
    segments->add_flag("--unique", texts.unique,
                       "Of gravity stretches with the same pipes and both ends list one");
}

void addPath(CLI::App& app, Texts& texts) {
    CLI::App* path =
        addCommand(app, "path",
                   "Rebuild a gravity network and the way from a well or pipe to its root", texts);
    path->add_option("--start", texts.start, "Well, tank or pipe to start from")
        ->required()
        ->type_name("HANDLE");
    path->add_option("--target", texts.target, "Well or pipe at which the way begins")
        ->required()
        ->type_name("HANDLE");
    addPicture(*path, texts);
}

void addLower(CLI::App& app, Texts& texts) {
    CLI::App* lower = addCommand(
        app, "lower", "Lower a gravity pipe, and what follows it along the water", texts);
    lower->add_option("--pipe", texts.pipe, "The pipe")->required()->type_name("HANDLE");
    lower->add_option("--drop", texts.drop, "How far it sinks; a negative number raises it")
        ->required()
        ->type_name("METRES");
    addOutput(*lower, texts);
    addPicture(*lower, texts);
}

void addCuts(CLI::App& app, Texts& texts) {
    CLI::App* breaking =
        addCommand(app, "break", "Break lines where they cross or run into each other", texts);
    CLI::App* trimming =
        addCommand(app, "trim", "Cut lines off at the rim of a block reference", texts);
    trimming->add_option("--block", texts.block, "The block reference, such as a well")
        ->required()
        ->type_name("HANDLE");
    for (CLI::App* command : {breaking, trimming}) {
        command->add_option("--lines", texts.lines, "The lines, with commas between them")
            ->required()
            ->type_name("H1,H2,...");
        addOutput(*command, texts);
        addPicture(*command, texts);
    }
}

void addCheck(CLI::App& app, Texts& texts) {
    CLI::App* check =
        addCommand(app, "check", "Rebuild every network and list what an engineer should look at",
                   texts, kReportForms);
    check->add_option("--system", texts.system, "Check this pipe system alone")->type_name("NAME");
    check->add_option("--output", texts.output, "Write the report into this file")
        ->type_name("FILE")
        ->group("Output");
}

void addExchange(CLI::App& app, Texts& texts) {
    CLI::App* exporting =
        addCommand(app, "export", "Write a network as a hydraulic model, a map or a table", texts);
    addStartOptions(*exporting, {texts.start, texts.pick, texts.point});
    addExportOptions(*exporting, texts.exchange, texts.output);
    CLI::App* importing =
        app.add_subcommand("import", "Draw a hydraulic model in SWMM or EPANET input format");
    importing->add_option("model", texts.drawing, "The model")->required()->type_name("MODEL");
    addSharedOptions(*importing, texts, kForms);
    addImportOptions(*importing, texts.exchange, texts.output);
}

void addCommands(CLI::App& app, Texts& texts) {
    addCommand(app, "info", "List the pipe systems of a drawing", texts);
    addSearch(app, texts);
    CLI::App* segment = addCommand(
        app, "segment", "Build the stretch of pipe around one pipe, from well to well", texts);
    segment->add_option("--pipe", texts.pipe, "The pipe")->required()->type_name("HANDLE");
    addSegments(app, texts);
    addPath(app, texts);
    addLower(app, texts);
    addCuts(app, texts);
    addCheck(app, texts);
    addExchange(app, texts);
}

/// An option that stands both before and after the command would silently lose one value.
void refuseTwice(const CLI::App& app, const CLI::App& command) {
    for (const char* name : kSharedOptions) {
        if (app.count(name) > 0 && command.count(name) > 0) {
            throw Failure(messages::kTwice, name);
        }
    }
}

template<class Value, class Read>
void readInto(std::optional<Value>& value, const std::string& text, const Read& read) {
    if (!text.empty()) {
        value = read(text);
    }
}

void readSettings(Options& options, const Texts& texts) {
    options.settingsFolder = texts.settings;
    siblings::DrawingSettings& settings = options.drawingSettings;
    readInto(settings.dwgScale, texts.dwgScale,
             [](const std::string& text) { return numberArgument("--dwg-scale", text, 0.0); });
    readInto(settings.drawScale, texts.drawScale, [](const std::string& text) {
        return numberArgument("--draw-scale", text, 0.0, true);
    });
    readInto(settings.pipeBreakDist, texts.breakDist,
             [](const std::string& text) { return numberArgument("--break-dist", text, 0.0); });
    readInto(settings.pipeCalLongType, texts.lengthMode,
             [](const std::string& text) { return integerArgument("--length-mode", text); });
}

void readHandle(AcDbHandle& handle, const char* option, const std::string& text) {
    if (!text.empty()) {
        handle = handleArgument(option, text);
    }
}

void readHandles(std::vector<AcDbHandle>& handles, const char* option, const std::string& text) {
    if (!text.empty()) {
        handles = handlesArgument(option, text);
    }
}

Command commandNamed(const std::string& name) {
    constexpr std::pair<const char*, Command> names[] = {
        {"info", Command::info},         {"search", Command::search},
        {"segment", Command::segment},   {"segments", Command::segments},
        {"path", Command::path},         {"lower", Command::lower},
        {"break", Command::breakLines},  {"trim", Command::trim},
        {"check", Command::check},       {"export", Command::exportNetwork},
        {"import", Command::importModel}};
    return std::find_if(std::begin(names), std::end(names),
                        [&name](const auto& entry) { return entry.first == name; })
        ->second;
}

Format formatNamed(const std::string& name) {
    constexpr std::pair<const char*, Format> names[] = {{"table", Format::table},
                                                        {"json", Format::json},
                                                        {"geojson", Format::geojson},
                                                        {"html", Format::html}};
    return std::find_if(std::begin(names), std::end(names),
                        [&name](const auto& entry) { return entry.first == name; })
        ->second;
}

Options readTexts(const std::string& command, const Texts& texts) {
    Options options;
    options.command = commandNamed(command);
    options.drawing = texts.drawing;
    options.format = formatNamed(texts.format);
    options.timing = texts.timing;
    options.svg = texts.svg;
    readSettings(options, texts);
    readHandle(options.start, "--start", texts.start);
    readHandle(options.end, "--end", texts.end);
    readHandle(options.pipe, "--pipe", texts.pipe);
    readHandle(options.target, "--target", texts.target);
    readHandles(options.pipes, "--pipes", texts.pipes);
    readHandles(options.lines, "--lines", texts.lines);
    readHandle(options.block, "--block", texts.block);
    options.unique = texts.unique;
    if (!texts.drop.empty()) {
        options.drop = numberArgument("--drop", texts.drop);
    }
    options.output = texts.output;
    options.system = texts.system;
    options.inPlace = texts.inPlace;
    options.exchange = texts.exchange;
    readInto(options.pick, texts.pick, pickArgument);
    readInto(options.point, texts.point, pointArgument);
    return options;
}

void checkStart(const CLI::App& command) {
    if (command.get_option_no_throw("--pick") == nullptr) {
        return;
    }
    const bool start = command.count("--start") > 0;
    const bool pick = command.count("--pick") > 0;
    if (start && pick) {
        throw Failure(messages::kStartAndPick);
    }
    if (!start && !pick) {
        throw Failure(messages::kNoStart, command.get_name());
    }
}

/// A drawing is never changed by the way.
void checkOutput(const CLI::App& command) {
    if (command.get_option_no_throw("--in-place") == nullptr) {
        return;
    }
    const bool output = command.count("--output") > 0;
    const bool inPlace = command.count("--in-place") > 0;
    if (output && inPlace) {
        throw Failure(messages::kOutputTwice);
    }
    if (!output && !inPlace) {
        throw Failure(messages::kNoOutput, command.get_name());
    }
}

/// The form may stand before the command, so that the option alone cannot tell.
void checkForm(const CLI::App& command, const Texts& texts) {
    const bool isReport = command.get_name() == "check";
    if (!isReport && std::find(kForms.begin(), kForms.end(), texts.format) == kForms.end()) {
        throw Failure(messages::kFormatOfCheck, texts.format);
    }
    if (texts.format == "html" && texts.timing) {
        throw Failure(messages::kTimingInPage);
    }
}

/// An empty value is never what was meant: often an unset variable of a script.
void refuseEmpty(const CLI::App& app) {
    for (const CLI::Option* option : app.get_options()) {
        const auto& given = option->results();
        const bool empty = std::any_of(given.begin(), given.end(),
                                       [](const std::string& text) { return text.empty(); });
        if (option->count() > 0 && empty) {
            throw Failure(messages::kUsage, option->get_name() + ": the value is empty");
        }
    }
}

bool parse(CLI::App& app, int count, const char* const* arguments) {
    try {
        app.parse(count, arguments);
        return true;
    } catch (const CLI::Success& help) {
        app.exit(help);
        if (!std::cout.flush()) {
            throw Failure(messages::kOutput);
        }
        return false;
    } catch (const CLI::ExtrasError&) {
        throw Failure(messages::kUsage,
                      "not expected: " + fmt::format("{}", fmt::join(app.remaining(true), " ")));
    } catch (const CLI::ParseError& error) {
        throw Failure(messages::kUsage, error.what());
    }
}

} // namespace

std::optional<Options> parseCommandLine(int count, const char* const* arguments) {
    Texts texts;
    CLI::App app(kAbout, "pipenet");
    app.set_version_flag("--version", "pipenet " PIPENET_VERSION);
    app.require_subcommand(0, 1);
    app.footer(kNotes);
    addSharedOptions(app, texts, kReportForms);
    addCommands(app, texts);
    if (!parse(app, count, arguments)) {
        return std::nullopt;
    }
    if (app.get_subcommands().empty()) {
        throw Failure(messages::kNoCommand);
    }
    const CLI::App& command = *app.get_subcommands().front();
    refuseTwice(app, command);
    refuseEmpty(app);
    refuseEmpty(command);
    checkStart(command);
    checkOutput(command);
    checkForm(command, texts);
    return readTexts(command.get_name(), texts);
}

} // namespace pipenet
