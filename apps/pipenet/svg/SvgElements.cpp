#include "svg/SvgElements.h"

#include "EmbeddedHost.h"
#include "TextWidth.h"

#include <cmath>
#include <fmt/format.h>

namespace pipenet {

namespace {

constexpr double kLatinAdvance = 0.66;
constexpr double kWideAdvance = 1.0;

const char* anchorName(Anchor anchor) {
    switch (anchor) {
    case Anchor::start:
        return "start";
    case Anchor::middle:
        return "middle";
    case Anchor::end:
        break;
    }
    return "end";
}

} // namespace

std::string svgNumber(double value) {
    const double rounded = std::round(value * 100.0) / 100.0;
    return fmt::format("{}", rounded == 0.0 ? 0.0 : rounded);
}

std::string svgEscaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c >= 0 && c < ' ' ? ' ' : c;
        }
    }
    return out;
}

std::string svgText(const PagePoint& place, std::string_view text, const TextLook& look) {
    const std::string turn =
        look.angle == 0.0 ? std::string()
                          : fmt::format(" transform=\"rotate({} {} {})\"", svgNumber(look.angle),
                                        svgNumber(place.x), svgNumber(place.y));
    return fmt::format(
        "<text x=\"{}\" y=\"{}\" font-size=\"{}\" fill=\"{}\" text-anchor=\"{}\"{}{}{}>"
        "{}</text>\n",
        svgNumber(place.x), svgNumber(place.y), svgNumber(look.size), look.colour,
        anchorName(look.anchor), look.bold ? " font-weight=\"bold\"" : "",
        look.halo ? " class=\"halo\"" : "", turn, svgEscaped(text));
}

double textWidth(std::string_view text, double size) {
    double ems = 0.0;
    for (const wchar_t character : host_text::fromUtf8(text)) {
        const int columns = characterColumns(static_cast<char32_t>(character));
        ems += columns == 2 ? kWideAdvance : columns * kLatinAdvance;
    }
    return ems * size;
}

} // namespace pipenet
