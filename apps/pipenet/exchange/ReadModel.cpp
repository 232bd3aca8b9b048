#include "exchange/ModelBuilder.h"

namespace pipenet {

namespace {

/// Both formats have junctions and pumps; these sections only one of them has.
constexpr const char* kSwmmSections[] = {"COND", "XSEC", "OUTF", "SUBC"};
constexpr const char* kEpanetSections[] = {"PIPE", "RESE", "VALV", "TANK"};

template<std::size_t count>
bool hasOneOf(const ModelFile& file, const char* const (&sections)[count]) {
    for (const char* section : sections) {
        if (file.has(section)) {
            return true;
        }
    }
    return false;
}

} // namespace

PipeModel readModel(const std::string& path) {
    const ModelFile file(path);
    const bool swmm = hasOneOf(file, kSwmmSections);
    const bool epanet = hasOneOf(file, kEpanetSections);
    if (swmm && epanet) {
        file.fail("the sections are partly those of a SWMM and partly those of an EPANET model");
    }
    if (!swmm && !epanet) {
        file.fail("the sections are neither those of a SWMM nor those of an EPANET model");
    }
    return swmm ? readSwmmModel(file) : readEpanetModel(file);
}

} // namespace pipenet
