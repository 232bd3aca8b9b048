#include "svg/NetworkPicture.h"

#include "OutputFile.h"
#include "svg/Furniture.h"
#include "svg/Labels.h"
#include "svg/Marks.h"
#include "svg/Style.h"
#include "svg/SvgElements.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

std::string opening(const Scene& scene, const std::string& drawing, double width, double height) {
    return fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" "
                       "viewBox=\"0 0 {0} {1}\" font-family=\"{2}\">\n"
                       "<title>{3}: {6} {4}</title>\n<desc>{5}</desc>\n"
                       "<style>.halo{{paint-order:stroke;stroke:#fff;stroke-width:3px;"
                       "stroke-linejoin:round}}</style>\n"
                       "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n",
                       svgNumber(width), svgNumber(height), style::kFonts, svgEscaped(drawing),
                       svgEscaped(scene.system), svgEscaped(scene.summary),
                       scene.kind == "cuts" ? scene.kind : scene.kind + " network");
}

/// Pipes of other networks run out of the picture and are cut at its edge.
std::string clippedContext(const Scene& scene, const Viewport& viewport) {
    const PageBox& area = viewport.area();
    return fmt::format("<clipPath id=\"plan\"><rect x=\"{}\" y=\"{}\" width=\"{}\" "
                       "height=\"{}\"/></clipPath>\n<g clip-path=\"url(#plan)\">\n{}</g>\n",
                       svgNumber(area.left), svgNumber(area.top), svgNumber(area.width()),
                       svgNumber(area.height()), contextMarks(scene, viewport));
}

} // namespace

std::string networkPicture(const Scene& scene, const std::string& drawing) {
    const Viewport viewport(scene);
    const Labels labels = placeLabels(scene, viewport);
    const Foot foot = footMarks(scene, labels.dropped, viewport);
    const double width = viewport.area().right + style::kMargin;
    return opening(scene, drawing, width, foot.bottom) + clippedContext(scene, viewport) +
           runMarks(scene, viewport) + flowMarks(scene, viewport) + nodeMarks(scene, viewport) +
           labels.elements + titleMarks(scene, drawing, viewport) + foot.elements + "</svg>\n";
}

void drawScene(const Scene& scene, const std::string& drawing, const std::string& path) {
    writeOutput(path, networkPicture(scene, drawing));
}

} // namespace pipenet
