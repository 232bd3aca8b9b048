// Lays a town and writes it as PREFIX.dxf with its truth in PREFIX.csv.

#include "town/Town.h"
#include "town/TownFiles.h"

#include <charconv>
#include <cstdio>
#include <exception>
#include <optional>
#include <string_view>

namespace {

constexpr std::uint64_t kSeed = 18;

constexpr const char* kUsage =
    "usage: lay_town KIND COUNT PREFIX\n"
    "\n"
    "Writes PREFIX.dxf, a drawing, and PREFIX.csv, what is true of it.\n"
    "\n"
    "  sewers COUNT        a gravity system of COUNT wells\n"
    "  twin COUNT          two of half as many side by side\n"
    "  water COUNT         a pressure system with COUNT valve and meter wells\n"
    "  shallow COUNT       a grid of COUNT by COUNT lines that cross, without a well\n"
    "  shallow-well COUNT  the same with a well in a corner\n"
    "  arcs COUNT          a grid of COUNT by COUNT places joined by arcs, without a well\n"
    "  arcs-well COUNT     the same with a well in a corner\n"
    "  pipes COUNT         COUNT pipes without a well\n";

std::optional<benchmark_town::Town> lay(std::string_view kind, std::size_t count) {
    using benchmark_town::GridKind;
    if (kind == "sewers" || kind == "twin") {
        return benchmark_town::laySewers(count, kind == "twin", kSeed);
    }
    if (kind == "water") {
        return benchmark_town::layWaterMain(count, kSeed);
    }
    if (kind == "shallow" || kind == "shallow-well") {
        return benchmark_town::layGrid(GridKind::kShallow, count, kind == "shallow-well");
    }
    if (kind == "arcs" || kind == "arcs-well") {
        return benchmark_town::layGrid(GridKind::kArcs, count, kind == "arcs-well");
    }
    if (kind == "pipes") {
        return benchmark_town::layPipes(count);
    }
    return std::nullopt;
}

int run(int argc, char** argv) {
    constexpr std::size_t fewest = 4;
    std::size_t count = 0;
    if (argc == 4) {
        const std::string_view text = argv[2];
        std::from_chars(text.data(), text.data() + text.size(), count);
    }
    if (count < fewest || count % 2 != 0) {
        std::fputs(kUsage, stderr);
        std::fputs("\nCOUNT is an even number, at least 4.\n", stderr);
        return 2;
    }
    const auto town = lay(argv[1], count);
    if (!town) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const std::string prefix = argv[3];
    benchmark_town::writeTruth(*town, prefix + ".csv");
    benchmark_town::writeDrawing(*town, prefix + ".dxf");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lay_town: %s\n", error.what());
        return 1;
    }
}
