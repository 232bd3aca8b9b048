#pragma once

#include "svg/Page.h"

#include <string>
#include <string_view>

namespace pipenet {

/// A number for an attribute: two decimals at most.
std::string svgNumber(double value);

/// A text for an element or an attribute: markup characters escaped, control characters dropped.
std::string svgEscaped(std::string_view text);

/// Where a text lies against its place.
enum class Anchor { start, middle, end };

struct TextLook {
    double size = 12.0;
    const char* colour = "#000";
    bool bold = false;
    Anchor anchor = Anchor::start;
    double angle = 0.0; ///< degrees, clockwise on the page
    bool halo = false;  ///< white around the letters
};

/// A text element whose baseline is at `place`, with its line end.
std::string svgText(const PagePoint& place, std::string_view text, const TextLook& look);

/// Estimate of a text's width in pixels, on the large side.
double textWidth(std::string_view text, double size);

} // namespace pipenet
