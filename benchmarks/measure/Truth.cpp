#include "measure/Truth.h"

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace benchmark_measure {

namespace {

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::size_t begin = 0;
    for (std::size_t comma = line.find(','); comma != std::string::npos;
         comma = line.find(',', begin)) {
        cells.push_back(line.substr(begin, comma - begin));
        begin = comma + 1;
    }
    cells.push_back(line.substr(begin));
    return cells;
}

std::uint64_t integer(const std::string& text, int base) {
    std::uint64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, base);
    return value;
}

double real(const std::string& text) {
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

SystemTruth systemOf(const std::vector<std::string>& cells) {
    SystemTruth system;
    system.start = integer(cells.at(3), 16);
    system.x = real(cells.at(4));
    system.y = real(cells.at(5));
    system.farPipe = integer(cells.at(6), 16);
    system.nodes = integer(cells.at(7), 10);
    system.segments = integer(cells.at(8), 10);
    system.valves = integer(cells.at(9), 10);
    system.meters = integer(cells.at(10), 10);
    system.pressure = system.nodes == 0 && system.segments != 0;
    system.refused = system.segments == 0;
    return system;
}

} // namespace

Truth readTruth(const std::filesystem::path& path) {
    std::ifstream file(path);
    Truth truth;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("pipe,")) {
            ++truth.pipes;
            continue;
        }
        const std::vector<std::string> cells = cellsOf(line);
        if (cells.front() == "system") {
            truth.systems.push_back(systemOf(cells));
        } else {
            ++truth.wells;
            truth.parents[integer(cells.at(1), 16)] = integer(cells.at(5), 16);
        }
    }
    if (truth.systems.empty()) {
        throw std::runtime_error("no truth in " + path.string());
    }
    return truth;
}

} // namespace benchmark_measure
