#pragma once

#include "exchange/ExchangeNetwork.h"

#include <string>

namespace pipenet {

/// Where a file comes from, for its opening lines.
struct ExchangeSource {
    std::string drawing; ///< name without folders
    std::string program; ///< with its version
};

/// The network as a file of each form, UTF-8. Each adds to the network's notes what stands in the
/// file without being in the drawing. `swmmText` takes gravity networks, `epanetText` pressure
/// networks, the others both.
std::string swmmText(ExchangeNetwork& network, const ExchangeSource& source);
std::string epanetText(ExchangeNetwork& network, const ExchangeSource& source);
std::string geoJsonText(const ExchangeNetwork& network, const ExchangeSource& source);
std::string csvText(const ExchangeNetwork& network);

/// A number in the shortest form that reads back as the same.
std::string shortest(double value);
/// A number with at most so many decimals.
std::string decimal(double value, int places);

/// Comment lines that say which entity of the drawing each name stands for.
std::string nameComments(const ExchangeNetwork& network);
/// `[COORDINATES]` and `[VERTICES]` in metres.
std::string mapSections(const ExchangeNetwork& network);

} // namespace pipenet
