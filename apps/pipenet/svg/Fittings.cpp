#include "svg/Fittings.h"

#include "svg/SvgElements.h"

#include <fmt/format.h>
#include <numbers>

namespace pipenet {

namespace {

/// The symbol about the origin, drawn for a run from left to right.
std::string symbol(NodeShape shape) {
    switch (shape) {
    case NodeShape::junction:
        return fmt::format("<circle r=\"3\" fill=\"{}\" stroke=\"#fff\"/>", style::kInk);
    case NodeShape::valve:
        return fmt::format("<path d=\"M-7 -5L7 5V-5L-7 5Z\" fill=\"#fff\" stroke=\"{}\" "
                           "stroke-width=\"1.6\" stroke-linejoin=\"round\"/>",
                           style::kInk);
    case NodeShape::meter:
        return fmt::format("<circle r=\"6\" fill=\"#fff\" stroke=\"{0}\" stroke-width=\"1.6\"/>"
                           "<path d=\"M0 0L3.4 -3.4\" stroke=\"{0}\" stroke-width=\"1.6\" "
                           "stroke-linecap=\"round\"/>",
                           style::kInk);
    case NodeShape::cut:
        return fmt::format("<path d=\"M-4 -4L4 4M-4 4L4 -4\" stroke=\"{}\" stroke-width=\"1.8\"/>",
                           style::kPath);
    default:
        return fmt::format("<circle r=\"8\" fill=\"none\" stroke=\"{0}\" stroke-width=\"2.4\"/>"
                           "<circle r=\"3.4\" fill=\"{0}\"/>",
                           style::kPath);
    }
}

} // namespace

bool isFitting(NodeShape shape) {
    return shape == NodeShape::junction || shape == NodeShape::valve || shape == NodeShape::meter ||
           shape == NodeShape::pickedEnd || shape == NodeShape::cut;
}

std::string fittingMark(const PagePoint& place, NodeShape shape, double rotation, double size) {
    const double degrees = -rotation * 180.0 / std::numbers::pi;
    return fmt::format("<g transform=\"translate({} {}) rotate({}) scale({})\">{}</g>\n",
                       svgNumber(place.x), svgNumber(place.y),
                       svgNumber(shape == NodeShape::valve ? degrees : 0.0), svgNumber(size),
                       symbol(shape));
}

} // namespace pipenet
