#pragma once

#include <string>

namespace pipenet {

/// The options of import and export alone; texts are UTF-8.
struct ExchangeOptions {
    std::string format; ///< of an export: swmm, epanet, geojson or csv
    std::string system; ///< of an import: the pipe system, empty for the usual one
};

} // namespace pipenet
