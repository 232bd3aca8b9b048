#include "exchange/ExchangeArguments.h"

namespace pipenet {

void addStartOptions(CLI::App& command, const StartTexts& texts) {
    command
        .add_option("--start", texts.start,
                    "Well, tank or pipe to start from; this or --pick is needed")
        ->type_name("HANDLE");
    command
        .add_option("--pick", texts.pick,
                    "Start from the network entity nearest to this place in plan")
        ->type_name("X,Y");
    command
        .add_option("--point", texts.point,
                    "Point of the search, which decides between the two ends of a start pipe; "
                    "the picked place unless given, else the origin")
        ->type_name("X,Y[,Z]");
}

void addExportOptions(CLI::App& command, ExchangeOptions& options, std::string& output) {
    command.add_option("--to", options.format, "Form of the file: swmm, epanet, geojson or csv")
        ->required()
        ->type_name("FORM")
        ->check(CLI::IsMember({"swmm", "epanet", "geojson", "csv"}));
    command.add_option("--output", output, "Write the network into this file")
        ->required()
        ->type_name("FILE");
}

void addImportOptions(CLI::App& command, ExchangeOptions& options, std::string& output) {
    command.add_option("--output", output, "Write the drawing into this file")
        ->required()
        ->type_name("FILE");
    command
        .add_option("--system", options.system,
                    "Pipe system of what is drawn: 雨水 for a SWMM model and 给水 for an EPANET "
                    "model unless given")
        ->type_name("NAME");
}

} // namespace pipenet
