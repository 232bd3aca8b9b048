#pragma once

#include "EmbeddedHost.h"
#include "exchange/ExchangeOptions.h"
#include "Siblings.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

enum class Command {
    info,
    search,
    segment,
    segments,
    path,
    lower,
    breakLines,
    trim,
    check,
    exportNetwork,
    importModel
};
enum class Format { table, json, geojson, html };

/// What the command line asked for. Texts are UTF-8.
struct Options {
    Command command = Command::info;
    std::string drawing;        ///< path as given
    std::string settingsFolder; ///< empty: the folder is found elsewhere
    siblings::DrawingSettings drawingSettings;
    Format format = Format::table;
    bool timing = false;

    AcDbHandle start; ///< null when the start is picked
    AcDbHandle end;   ///< null for none
    AcDbHandle pipe;
    AcDbHandle target;
    std::vector<AcDbHandle> pipes;
    std::vector<AcDbHandle> lines;
    AcDbHandle block;
    bool unique = false;
    double drop = 0.0;  ///< metres
    std::string output; ///< path of the drawing, report or file to be written, empty for none
    bool inPlace = false;
    std::optional<AcGePoint3d> pick;  ///< in plan, drawing units
    std::optional<AcGePoint3d> point; ///< drawing units
    ExchangeOptions exchange;         ///< of export and import
    std::string svg;                  ///< path of the picture, empty for none
    std::string system;               ///< the only system to check, empty for all
};

} // namespace pipenet
