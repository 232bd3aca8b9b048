#include "exchange/PipeMaterials.h"

#include <algorithm>
#include <iterator>

namespace pipenet {

namespace {

struct Roughness {
    const char* material;
    double value;
};

constexpr Roughness kManning[] = {{"PVC", 0.010},        {"PE", 0.011},   {"混凝土", 0.013},
                                  {"钢筋混凝土", 0.015}, {"HDPE", 0.011}, {"玻璃钢", 0.0105},
                                  {"球墨铸铁", 0.012},   {"铸铁", 0.014}, {"钢", 0.0125},
                                  {"砖砌", 0.017},       {"钢管", 0.0125}};
constexpr double kAnyManning = 0.013;
constexpr Roughness kHazenWilliams[] = {{"PE", 140.0},     {"球墨铸铁", 120.0}, {"PVC", 150.0},
                                        {"钢", 125.0},     {"钢管", 125.0},     {"铸铁", 100.0},
                                        {"混凝土", 110.0}, {"HDPE", 145.0}};
constexpr double kAnyHazenWilliams = 130.0;

template<std::size_t count>
std::string materialOf(const Roughness (&table)[count], double value) {
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [value](const Roughness& one) { return one.value == value; });
    return found == std::end(table) ? "" : found->material;
}

template<std::size_t count>
double roughnessOf(const Roughness (&table)[count], const std::string& material, double missing) {
    const auto* found =
        std::find_if(std::begin(table), std::end(table),
                     [&material](const Roughness& one) { return material == one.material; });
    return found == std::end(table) ? missing : found->value;
}

} // namespace

std::string materialOfManning(double n) {
    return materialOf(kManning, n);
}

std::string materialOfHazenWilliams(double c) {
    return materialOf(kHazenWilliams, c);
}

double manningOf(const std::string& material) {
    return roughnessOf(kManning, material, kAnyManning);
}

double hazenWilliamsOf(const std::string& material) {
    return roughnessOf(kHazenWilliams, material, kAnyHazenWilliams);
}

} // namespace pipenet
