#include "svg/Furniture.h"

#include "svg/Fittings.h"
#include "svg/Marks.h"
#include "svg/Style.h"
#include "svg/SvgElements.h"
#include "Systems.h"

#include <cmath>
#include <fmt/format.h>
#include <functional>

namespace pipenet {

namespace {

constexpr double kRowHeight = 26.0;
constexpr double kSymbolWidth = 38.0;
constexpr double kLegendSize = 12.0;
constexpr double kItemGap = 12.0;

/// One symbol with its meaning; the symbol is drawn around the middle of its room.
struct LegendItem {
    std::string text;
    std::function<std::string(const PagePoint&)> symbol;
};

std::string lineSymbol(const PagePoint& middle, const char* colour, double width) {
    return fmt::format("<path d=\"M{0} {1}H{2}\" stroke=\"{3}\" stroke-width=\"{4}\" "
                       "stroke-linecap=\"round\"/>\n",
                       svgNumber(middle.x - 14.0), svgNumber(middle.y), svgNumber(middle.x + 14.0),
                       colour, svgNumber(width));
}

LegendItem runItem(std::string text, const char* colour, double width, double arrow) {
    return {std::move(text), [=](const PagePoint& middle) {
                return lineSymbol(middle, colour, width) + arrowMark(middle, 0.0, colour, arrow);
            }};
}

LegendItem wellItem(std::string text, NodeShape shape) {
    return {std::move(text), [=](const PagePoint& middle) {
                return wellMark(middle, 5.5, shape, 0.0, style::kNetwork, false);
            }};
}

std::string mergedSymbol(const PagePoint& middle) {
    return wellMark(middle, 6.5, NodeShape::round, 0.0, style::kNetwork, false) +
           fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"3.2\" fill=\"none\" stroke=\"{}\" "
                       "stroke-width=\"1.4\"/>\n",
                       svgNumber(middle.x), svgNumber(middle.y), style::kNetwork);
}

std::string tankSymbol(const PagePoint& middle) {
    return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"20\" height=\"12\" rx=\"2\" fill=\"{}\" "
                       "stroke=\"{}\" stroke-width=\"2\"/>\n",
                       svgNumber(middle.x - 10.0), svgNumber(middle.y - 6.0), style::kTankFill,
                       style::kTankLine);
}

std::string rootSymbol(const PagePoint& middle) {
    return wellMark(middle, style::kLeastNodeRadius * 0.7, NodeShape::round, 0.0, style::kInk,
                    true);
}

LegendItem fittingItem(std::string text, NodeShape shape) {
    return {std::move(text),
            [=](const PagePoint& middle) { return fittingMark(middle, shape, 0.0, 1.0); }};
}

/// Symbols of a pressure network or of cuts, and what the colours mean.
std::vector<LegendItem> pressureItems(const Scene& scene) {
    const auto has = [&scene](NodeShape shape) {
        return std::any_of(scene.nodes.begin(), scene.nodes.end(),
                           [shape](const SceneNode& node) { return node.shape == shape; });
    };
    std::vector<LegendItem> items;
    for (const auto& [text, shape] :
         {std::pair{"picked end", NodeShape::pickedEnd}, std::pair{"junction", NodeShape::junction},
          std::pair{"valve", NodeShape::valve}, std::pair{"meter", NodeShape::meter},
          std::pair{"cut", NodeShape::cut}}) {
        if (has(shape)) {
            items.push_back(fittingItem(text, shape));
        }
    }
    for (const SceneSize& size : scene.sizes) {
        items.push_back({size.text, [colour = size.colour](const PagePoint& middle) {
                             return lineSymbol(middle, colour, 3.0);
                         }});
    }
    return items;
}

/// Symbols of a gravity network.
std::vector<LegendItem> gravityItems(const Scene& scene) {
    const auto has = [&scene](auto&& test) {
        return std::any_of(scene.nodes.begin(), scene.nodes.end(), test);
    };
    std::vector<LegendItem> items;
    items.push_back({"root", rootSymbol});
    if (has([](const SceneNode& node) { return node.shape == NodeShape::round; })) {
        items.push_back(wellItem("well", NodeShape::round));
    }
    if (has([](const SceneNode& node) { return node.shape == NodeShape::square; })) {
        items.push_back(wellItem("square well", NodeShape::square));
    }
    if (has([](const SceneNode& node) { return node.merged; })) {
        items.push_back({"merged wells", mergedSymbol});
    }
    if (has([](const SceneNode& node) { return node.shape == NodeShape::box; })) {
        items.push_back({"tank", tankSymbol});
    }
    items.push_back(runItem("pipe and flow", style::kNetwork, 2.6, 11.0));
    if (has([](const SceneNode& node) { return node.onPath; })) {
        items.push_back(runItem("path to the end", style::kPath, 4.4, 15.0));
    }
    if (std::any_of(scene.runs.begin(), scene.runs.end(),
                    [](const SceneRun& run) { return run.isLowered; })) {
        items.push_back({"lowered", [](const PagePoint& middle) {
                             return lineSymbol(middle, style::kLowered, 4.4);
                         }});
    }
    return items;
}

/// Only what the picture shows is explained.
std::vector<LegendItem> legendItems(const Scene& scene) {
    std::vector<LegendItem> items = scene.showsFlow ? gravityItems(scene) : pressureItems(scene);
    items.push_back(
        {scene.kind == "cuts" ? "other curves" : "other pipes",
         [](const PagePoint& middle) { return lineSymbol(middle, style::kContext, 1.6); }});
    return items;
}

TextLook legendLook() {
    TextLook look;
    look.size = kLegendSize;
    look.colour = style::kInk;
    return look;
}

/// The greatest of 1, 2, 5 times a power of ten that is at most `most`.
double roundLength(double most) {
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    for (const double step : {5.0, 2.0}) {
        if (step * power <= most) {
            return step * power;
        }
    }
    return power;
}

/// Two fields, dark and light, `right` being the right end; in the foot's own coordinates.
std::string scaleBar(const PagePoint& right, const Viewport& viewport) {
    const double pixelsOfMetre = viewport.scale() / metres(1.0) / viewport.furniture();
    const double length = roundLength(220.0 / pixelsOfMetre);
    const double half = length * pixelsOfMetre / 2.0;
    const double left = right.x - 2.0 * half;
    TextLook look = legendLook();
    look.anchor = Anchor::middle;
    std::string out;
    for (const int field : {0, 1}) {
        out += fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"6\" fill=\"{}\" "
                           "stroke=\"{}\" stroke-width=\"1\"/>\n",
                           svgNumber(left + field * half), svgNumber(right.y), svgNumber(half),
                           field == 0 ? style::kInk : "#fff", style::kInk);
    }
    const double textLine = right.y - 5.0;
    out += svgText({left, textLine}, "0", look);
    out += svgText({left + half, textLine}, fmt::format("{:g}", length / 2.0), look);
    look.anchor = Anchor::end;
    return out + svgText({right.x, textLine}, fmt::format("{:g} m", length), look);
}

std::string rule(double y, double width) {
    return fmt::format("<path d=\"M0 {}H{}\" stroke=\"{}\"/>\n", svgNumber(y), svgNumber(width),
                       style::kRule);
}

/// Elements laid out from the left edge of the plan and from `top` on, at the furniture's size.
std::string placed(const std::string& elements, double top, const Viewport& viewport) {
    return fmt::format("<g transform=\"translate({} {}) scale({})\">\n{}</g>\n",
                       svgNumber(viewport.area().left), svgNumber(top),
                       svgNumber(viewport.furniture()), elements);
}

/// The legend in rows of `width`; `bottom` becomes the lower edge of the last one.
std::string legend(const Scene& scene, double width, double& bottom) {
    std::string out;
    PagePoint cursor{0.0, 28.0};
    for (const LegendItem& item : legendItems(scene)) {
        const double room = kSymbolWidth + textWidth(item.text, kLegendSize) + kItemGap;
        if (cursor.x > 0.0 && cursor.x + room > width) {
            cursor = {0.0, cursor.y + kRowHeight};
        }
        out += item.symbol({cursor.x + kSymbolWidth / 2.0 - 3.0, cursor.y});
        out += svgText({cursor.x + kSymbolWidth, cursor.y + 4.0}, item.text, legendLook());
        cursor.x += room;
    }
    bottom = cursor.y + kRowHeight;
    return out;
}

} // namespace

std::string titleMarks(const Scene& scene, const std::string& drawing, const Viewport& viewport) {
    TextLook title;
    title.size = 22.0;
    title.colour = style::kInk;
    title.bold = true;
    TextLook counts;
    counts.size = 13.0;
    counts.colour = style::kFaint;
    const double width = viewport.area().width() / viewport.furniture();
    const std::string kind = scene.kind == "gravity"    ? "Gravity network "
                             : scene.kind == "pressure" ? "Pressure network "
                                                        : "Lines cut";
    return placed(svgText({0.0, 36.0}, kind + scene.system, title) +
                      svgText({0.0, 58.0}, drawing + " · " + scene.summary, counts) +
                      rule(viewport.area().top / viewport.furniture(), width),
                  0.0, viewport);
}

Foot footMarks(const Scene& scene, int droppedLabels, const Viewport& viewport) {
    constexpr double barRoom = 250.0;
    const double width = viewport.area().width() / viewport.furniture();
    double bottom = 0.0;
    std::string elements = rule(0.0, width) + legend(scene, width - barRoom, bottom) +
                           scaleBar({width, 32.0}, viewport);
    if (droppedLabels > 0) {
        TextLook look = legendLook();
        look.size = 10.0;
        look.colour = style::kFaint;
        look.anchor = Anchor::end;
        bottom = std::max(bottom, 70.0);
        elements +=
            svgText({width, 56.0}, fmt::format("labels without room: {}", droppedLabels), look);
    }
    const double top = viewport.area().bottom;
    return {placed(elements, top, viewport), top + bottom * viewport.furniture()};
}

} // namespace pipenet
