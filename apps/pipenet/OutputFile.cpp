#include "OutputFile.h"

#include "exchange/ExchangeMessages.h"
#include "Failure.h"
#include "WholeFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace pipenet {

namespace {

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code none;
    return std::filesystem::equivalent(a, b, none);
}

/// The file as the one that it would be, also when it is not there yet.
std::filesystem::path resolved(const std::string& path) {
    std::error_code none;
    return std::filesystem::weakly_canonical(path, none);
}

void refuseWhatIsNoPlainFile(const std::string& path) {
    std::error_code none;
    const std::filesystem::file_status status = std::filesystem::status(path, none);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw Failure(messages::kNoPlainFile, path);
    }
}

} // namespace

std::string outputPath(const Drawing& drawing, const Options& options) {
    if (options.inPlace) {
        return drawing.path();
    }
    if (isSameFile(options.output, drawing.path())) {
        throw Failure(messages::kOutputIsInput, options.output);
    }
    refuseWhatIsNoPlainFile(options.output);
    return options.output;
}

void writeOutput(const std::string& path, const std::string& text) {
    errno = 0;
    if (!siblings::replaceWholeFile(path, text)) {
        const int cause = errno;
        throw Failure(messages::kUnwritable, path,
                      cause == 0 ? "the folder or the file refuses it" : std::strerror(cause));
    }
}

std::string separateOutput(const Options& options) {
    if (isSameFile(options.output, options.drawing)) {
        throw Failure(messages::kOutputIsSource, options.output);
    }
    refuseWhatIsNoPlainFile(options.output);
    return options.output;
}

void checkPicture(const Options& options) {
    if (options.svg.empty()) {
        return;
    }
    const bool isOutput =
        !options.output.empty() && resolved(options.svg) == resolved(options.output);
    if (isSameFile(options.svg, options.drawing) || isOutput) {
        throw Failure(messages::kPictureIsDrawing, options.svg);
    }
    refuseWhatIsNoPlainFile(options.svg);
}

} // namespace pipenet
