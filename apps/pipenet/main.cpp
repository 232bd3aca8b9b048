#include "CommandLine.h"
#include "CutCommands.h"
#include "exchange/ExportCommand.h"
#include "exchange/ImportCommand.h"
#include "Failure.h"
#include "findings/CheckCommand.h"
#include "InfoCommand.h"
#include "LowerCommand.h"
#include "OneLine.h"
#include "OutputFile.h"
#include "PathCommand.h"
#include "Progress.h"
#include "SearchCommand.h"
#include "SearchModule.h"
#include "SegmentCommand.h"
#include "SegmentsCommand.h"
#include "SettingsCheck.h"

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace pipenet {

namespace {

Answer runCommand(const Drawing& drawing, const Options& options) {
    switch (options.command) {
    case Command::info:
        return runInfo(drawing, options);
    case Command::search:
        return runSearch(drawing, options);
    case Command::segment:
        return runSegment(drawing, options);
    case Command::segments:
        return runSegments(drawing, options);
    case Command::path:
        return runPath(drawing, options);
    case Command::lower:
        return runLower(drawing, options);
    case Command::breakLines:
        return runBreak(drawing, options);
    case Command::check:
        return runCheck(drawing, options);
    case Command::trim:
        return runTrim(drawing, options);
    case Command::exportNetwork:
        return runExport(drawing, options);
    case Command::importModel:
        break; // reads no drawing
    }
    return runImport(options);
}

std::unique_ptr<Drawing> openDrawing(const std::string& path) {
    const Progress progress("reading " + path);
    return std::make_unique<Drawing>(path);
}

void printPiece(std::string_view piece) {
    if (std::fwrite(piece.data(), 1, piece.size(), stdout) != piece.size()) {
        throw Failure(messages::kOutput);
    }
}

void print(const Answer& answer, bool timing) {
    if (!answer.file.empty()) {
        std::string text;
        writeAnswer(answer, timing, [&text](std::string_view piece) { text += piece; });
        writeOutput(answer.file, text);
        return;
    }
    writeAnswer(answer, timing, printPiece);
    if (std::fflush(stdout) != 0) {
        throw Failure(messages::kOutput);
    }
}

/// @param drawing is opened here and outlives the answer, which may read of it while it is written.
Answer runOnDrawing(const Options& options, std::unique_ptr<Drawing>& drawing) {
    const Stopwatch watch;
    drawing = openDrawing(options.drawing);
    const double loadMs = watch.milliseconds();
    Answer answer = runCommand(*drawing, options);
    answer.timing.loadMs = loadMs;
    return answer;
}

int run(const Options& options) {
    siblings::setSystemPath(options.settingsFolder);
    siblings::setDrawingSettings(options.drawingSettings);
    checkSettings();
    checkPicture(options);
    const SearchModule module;
    std::unique_ptr<Drawing> drawing;
    const Answer answer = options.command == Command::importModel ? runImport(options)
                                                                  : runOnDrawing(options, drawing);
    print(answer, options.timing);
    if (answer.refusal.empty()) {
        return kDone;
    }
    complain(answer.refusal);
    return kRefused;
}

int runGuarded(int count, char** arguments) {
    std::string drawing = "pipenet";
    try {
        const std::optional<Options> options = parseCommandLine(count, arguments);
        if (!options) {
            return kDone;
        }
        drawing = options->drawing;
        return run(*options);
    } catch (const Failure& failure) {
        complain(failure.what());
    } catch (const std::exception& error) {
        complain(textOf(messages::kInternal, drawing, error.what()));
    }
    return kFailed;
}

/// A standard stream that is closed would give its number to the next file that is opened, and what
/// is said on the stream would go into that file. Read-only, so that writing fails as before.
void keepStandardStreams() {
    int file = ::open("/dev/null", O_RDONLY);
    while (file >= 0 && file <= STDERR_FILENO) {
        file = ::open("/dev/null", O_RDONLY);
    }
    if (file >= 0) {
        ::close(file);
    }
}

} // namespace
} // namespace pipenet

int main(int count, char** arguments) {
    pipenet::keepStandardStreams();
    return pipenet::runGuarded(count, arguments);
}
