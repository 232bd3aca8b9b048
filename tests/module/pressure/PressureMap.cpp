#include "module/pressure/PressureMap.h"

#include <stdexcept>

namespace module_tests {

namespace {

const std::string kRoundWell = "VLT_WELL_01";

/// Replaces `old` where it first stands behind `place`.
void replaceBehind(std::string& text, const std::string& place, const std::string& old,
                   const std::string& replacement) {
    const std::size_t from = text.find(place);
    const std::size_t at = from == std::string::npos ? from : text.find(old, from);
    if (at == std::string::npos) {
        throw std::logic_error("no " + old + " behind " + place);
    }
    text.replace(at, old.size(), replacement);
}

/// The definition of the round well under another name.
std::string definition(const std::string& text, const std::string& name) {
    const std::size_t begin = text.find("0\nBLOCK\n");
    const std::string end = "0\nENDBLK\n8\n0\n";
    std::string block = text.substr(begin, text.find(end, begin) + end.size() - begin);
    replaceBehind(block, "\n2\n", kRoundWell, name);
    replaceBehind(block, "\n3\n", kRoundWell, name);
    return block;
}

} // namespace

void PressureMap::main(const std::string& name, Place from, Place to, MapPipe texts) {
    texts.system = "给水";
    pipe(name, from, to, texts);
}

void PressureMap::well(const std::string& name, Place at, const std::string& diameter) {
    DxfMap::well(name, at, {.diameter = diameter, .system = "给水"});
}

void PressureMap::meter(const std::string& name, Place at, const std::string& diameter) {
    well(name, at, diameter);
    blocks_[name] = "VLT_WELL_15";
}

void PressureMap::valve(const std::string& name, Place at, const std::string& diameter) {
    well(name, at, diameter);
    blocks_[name] = "VLT_WELL_05";
}

std::string PressureMap::text() const {
    std::string text = DxfMap::text();
    for (const auto& [name, block] : blocks_) {
        replaceBehind(text, "\n5\n" + handle(name) + "\n", "\n2\n" + kRoundWell + "\n",
                      "\n2\n" + block + "\n");
    }
    const std::string blocks = definition(text, "VLT_WELL_05") + definition(text, "VLT_WELL_15");
    text.insert(text.find("0\nBLOCK\n"), blocks);
    return text;
}

} // namespace module_tests
