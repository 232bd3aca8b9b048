#pragma once

#include <string>

namespace pipenet {

/// The material for which a roughness is usually chosen; empty for any other roughness. A model
/// knows the one, a drawing the other.
std::string materialOfManning(double n);
std::string materialOfHazenWilliams(double c);

/// The roughness that is usually chosen for a material, and a middling one for any other: Manning's
/// n 0.013, Hazen-Williams's C 130.
double manningOf(const std::string& material);
double hazenWilliamsOf(const std::string& material);

} // namespace pipenet
