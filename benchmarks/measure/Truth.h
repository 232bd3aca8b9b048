#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

namespace benchmark_measure {

/// Where a search of one system of a drawing begins, and what it must find.
struct SystemTruth {
    bool pressure = false;
    bool refused = false; ///< the search must say no
    std::uint64_t start = 0;
    double x = 0.0;
    double y = 0.0;
    std::uint64_t farPipe = 0;
    std::size_t nodes = 0;
    std::size_t segments = 0;
    std::size_t valves = 0;
    std::size_t meters = 0;
};

/// What is true of a drawing.
struct Truth {
    std::vector<SystemTruth> systems;
    /// Handle of each well to that of the well its water runs to, 0 for a root. Empty where nothing
    /// is known but the counts.
    std::unordered_map<std::uint64_t, std::uint64_t> parents;
    std::size_t wells = 0;
    std::size_t pipes = 0;
};

/// Reads the rows that stand beside a drawing of a town. Throws std::runtime_error for a file that
/// cannot be read.
Truth readTruth(const std::filesystem::path& path);

} // namespace benchmark_measure
