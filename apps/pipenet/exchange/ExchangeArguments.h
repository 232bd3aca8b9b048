#pragma once

#include "exchange/ExchangeOptions.h"

#include <CLI/CLI.hpp>
#include <string>

namespace pipenet {

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
