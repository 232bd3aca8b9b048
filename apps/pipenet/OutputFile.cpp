#include "OutputFile.h"

#include "Failure.h"

#include <filesystem>

namespace pipenet {

std::string outputPath(const Drawing& drawing, const Options& options) {
    if (options.inPlace) {
        return drawing.path();
    }
    std::error_code none;
    if (std::filesystem::equivalent(options.output, drawing.path(), none)) {
        throw Failure(messages::kOutputIsInput, options.output);
    }
    const std::filesystem::file_status status = std::filesystem::status(options.output, none);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw Failure(messages::kNoPlainFile, options.output);
    }
    return options.output;
}

} // namespace pipenet
