// Lays a town and writes it as PREFIX.dxf with its truth in PREFIX.csv.

#include "town/Town.h"
#include "town/TownFiles.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <iterator>
#include <string>
#include <string_view>

namespace {

constexpr std::uint64_t kSeed = 18;

constexpr const char* kUsage =
    "usage: lay_town KIND COUNT PREFIX\n"
    "\n"
    "Writes PREFIX.dxf, a drawing, and PREFIX.csv, what is true of it.\n"
    "\n"
    "  sewers COUNT        a gravity system of COUNT wells, all of one network\n"
    "  twin COUNT          two of half as many side by side\n"
    "  districts COUNT     a gravity system of COUNT wells in five networks, at least 100;\n"
    "                      true is what a search of the first finds\n"
    "  water COUNT         a pressure system with COUNT valve and meter wells\n"
    "  shallow COUNT       a grid of COUNT by COUNT lines that cross, without a well\n"
    "  shallow-well COUNT  the same with a well in a corner\n"
    "  square COUNT        a water main of COUNT by COUNT streets that cross, without a well\n"
    "  arcs COUNT          a grid of COUNT by COUNT places joined by arcs, without a well\n"
    "  arcs-well COUNT     the same with a well in a corner\n"
    "  pipes COUNT         COUNT pipes without a well\n"
    "\n"
    "COUNT is even and at least 4 but for grids, of which it is at least 2.\n";

using benchmark_town::GridKind;
using benchmark_town::Town;

struct Kind {
    std::string_view name;
    std::size_t fewest;
    bool isEven; ///< the count has to be
    Town (*lay)(std::size_t count);
};

template<GridKind kGrid, bool kCorner>
Town layGridOf(std::size_t side) {
    return benchmark_town::layGrid(kGrid, side, kCorner);
}

constexpr Kind kKinds[] = {
    {"sewers", 4, true,
     [](std::size_t count) { return benchmark_town::laySewers(count, false, kSeed); }},
    {"twin", 4, true,
     [](std::size_t count) { return benchmark_town::laySewers(count, true, kSeed); }},
    {"districts", 100, true,
     [](std::size_t count) { return benchmark_town::layDistricts(count, kSeed); }},
    {"water", 4, true,
     [](std::size_t count) { return benchmark_town::layWaterMain(count, kSeed); }},
    {"shallow", 2, false, layGridOf<GridKind::kShallow, false>},
    {"shallow-well", 2, false, layGridOf<GridKind::kShallow, true>},
    {"square", 2, false, layGridOf<GridKind::kSquare, false>},
    {"arcs", 2, false, layGridOf<GridKind::kArcs, false>},
    {"arcs-well", 2, false, layGridOf<GridKind::kArcs, true>},
    {"pipes", 4, true, benchmark_town::layPipes},
};

const Kind* kindOf(std::string_view name) {
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const Kind& each) { return each.name == name; });
    return kind == std::end(kKinds) ? nullptr : kind;
}

int run(int argc, char** argv) {
    const Kind* kind = nullptr;
    std::size_t count = 0;
    if (argc == 4) {
        const std::string_view text = argv[2];
        std::from_chars(text.data(), text.data() + text.size(), count);
        kind = kindOf(argv[1]);
    }
    if (kind == nullptr || count < kind->fewest || (kind->isEven && count % 2 != 0)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const Town town = kind->lay(count);
    const std::string prefix = argv[3];
    benchmark_town::writeTruth(town, prefix + ".csv");
    benchmark_town::writeDrawing(town, prefix + ".dxf");
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
