// Works in one process for as many rounds as wanted and demands that nothing grows.

#include "SoakRound.h"

#include "module/support/AllocatedBytes.h"
#include "Siblings.h"
#include "siblings/TemporaryFolder.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr int kRounds = 10000;

/// By so many bytes the heap in use may differ between the end of the first tenth of the rounds and
/// their end, a small part of what one drawing holds. Sixteen bytes left behind by each round, the
/// least that the system counts, would be many times that in ten thousand rounds.
constexpr long long kGrowth = 8192;

/// The system keeps freed storage of up to a thousand bytes aside for each thread and counts it as
/// in use. Without that, what it counts is what the program holds.
void startWithoutCaches(char** argv) {
    constexpr const char* tunables = "GLIBC_TUNABLES";
    if (std::getenv(tunables) == nullptr) {
        setenv(tunables, "glibc.malloc.tcache_count=0", 1);
        execv("/proc/self/exe", argv);
    }
}

std::size_t residentBytes() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

struct Memory {
    std::size_t allocated = module_tests::allocatedBytes();
    std::size_t resident = residentBytes();

    void print(int rounds) const {
        std::printf("after %6d rounds: %9zu bytes in use, %6zu KiB resident\n", rounds, allocated,
                    resident / 1024);
        std::fflush(stdout);
    }
};

/// The argument of --rounds, at least 10; the usual number without one.
int roundsOf(int argc, char** argv) {
    if (argc == 1) {
        return kRounds;
    }
    int rounds = 0;
    if (argc == 3 && std::strcmp(argv[1], "--rounds") == 0) {
        const char* const end = argv[2] + std::strlen(argv[2]);
        const auto [rest, error] = std::from_chars(argv[2], end, rounds);
        if (error == std::errc() && rest == end && rounds >= 10) {
            return rounds;
        }
    }
    throw std::invalid_argument("usage: soak [--rounds N], N at least 10");
}

void run(int rounds) {
    const sibling_tests::TemporaryFolder folder;
    const std::string saved = (folder.path() / "saved.dxf").string();
    siblings::setSystemPath(std::string(TKVLT_EXAMPLES_DIR) + "/settings");
    const int tenth = rounds / 10;
    Memory atTenth;
    for (int round = 0; round < rounds; ++round) {
        try {
            soak::runRound(soak::drawingOfRound(round), saved);
        } catch (const std::exception& failure) {
            throw std::runtime_error("round " + std::to_string(round) + ", " +
                                     soak::drawingOfRound(round).file + ": " + failure.what());
        }
        if (round + 1 == tenth) {
            atTenth = Memory();
        }
        if ((round + 1) % tenth == 0) {
            Memory().print(round + 1);
        }
    }
    const Memory atEnd;
    const auto growth =
        static_cast<long long>(atEnd.allocated) - static_cast<long long>(atTenth.allocated);
    std::printf(
        "%d rounds: the heap in use grew by %lld bytes since round %d, the resident set by "
        "%lld KiB\n",
        rounds, growth, tenth,
        (static_cast<long long>(atEnd.resident) - static_cast<long long>(atTenth.resident)) / 1024);
    soak::require(std::llabs(growth) <= kGrowth, "the heap in use does not stay the same");
}

} // namespace

int main(int argc, char** argv) {
    startWithoutCaches(argv);
    try {
        run(roundsOf(argc, argv));
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "soak: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
