#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace pipenet {

/// The options of import and export alone; texts are UTF-8.
struct ExchangeOptions {
    std::string format; ///< of an export: swmm, epanet, geojson or csv
    std::string system; ///< of an import: the pipe system, empty for the usual one
};

/// Options that both a search and an export start with.
struct StartTexts {
    std::string& start;
    std::string& pick;
    std::string& point;
};

/// Adds --start, --pick and --point, which say what a search begins at.
void addStartOptions(CLI::App& command, const StartTexts& texts);

/// Adds --to and --output to the command `export`.
void addExportOptions(CLI::App& command, ExchangeOptions& options, std::string& output);

/// Adds --system and --output to the command `import`.
void addImportOptions(CLI::App& command, ExchangeOptions& options, std::string& output);

} // namespace pipenet
