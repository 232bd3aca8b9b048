// Loads a town, searches all its systems and prints how much memory the process had at most.

#include "measure/Search.h"

#include "Siblings.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* kUsage = "usage: peak_memory PREFIX SETTINGS\n"
                               "\n"
                               "Prints three numbers in KiB: the peak of the process after loading "
                               "PREFIX.dxf, the peak after\n"
                               "searching it too, and the size of the file.\n";

/// The high-water mark of this process's resident memory, KiB.
long peak() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stol(line.substr(line.find(':') + 1));
        }
    }
    throw std::runtime_error("the system does not tell the peak of memory");
}

int run(int argc, char** argv) {
    using namespace benchmark_measure;
    constexpr int bytesPerKiB = 1024;
    if (argc != 3) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const std::string prefix = argv[1];
    siblings::setSystemPath(argv[2]);
    const long before = peak();
    // The truth is read first: what the parser needs lies below the drawing's peak. What it says of
    // each well would count as memory of the search; those who measure time compare that.
    Truth counts;
    counts.systems = readTruth(prefix + ".csv").systems;
    const OpenSpecimen specimen({prefix, prefix + ".dxf", {}, counts});
    const long loaded = peak();
    for (const SystemTruth& system : specimen.truth().systems) {
        Search search(specimen, system, false);
        search.run();
        search.check(false);
    }
    if (loaded == before) {
        throw std::runtime_error("the drawing needed no memory");
    }
    const auto size = std::filesystem::file_size(prefix + ".dxf") / bytesPerKiB;
    std::printf("%ld %ld %ld\n", loaded, peak(), static_cast<long>(size));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "peak_memory: %s\n", error.what());
        return 1;
    }
}
