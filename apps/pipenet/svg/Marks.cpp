#include "svg/Marks.h"

#include "svg/Fittings.h"
#include "svg/Style.h"
#include "svg/SvgElements.h"

#include <cmath>
#include <fmt/format.h>
#include <numbers>
#include <optional>

namespace pipenet {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

double runWidth(const SceneRun& run, const Viewport& viewport) {
    const double byDiameter = std::clamp(1.6 + run.diameter / 350.0, 2.0, 4.0);
    return (run.onPath ? byDiameter + 1.8 : byDiameter) * viewport.furniture();
}

std::string pagePair(const PagePoint& point) {
    return svgNumber(point.x) + ' ' + svgNumber(point.y);
}

/// Path data of a curve; arcs stay arcs.
std::string pathData(const PlanCurve& curve, const Viewport& viewport) {
    std::string data = "M" + pagePair(viewport.toPage(curve.start));
    PlanPoint start = curve.start;
    for (const PlanStep& step : curve.steps) {
        const std::string end = pagePair(viewport.toPage(step.end));
        if (step.bulge == 0.0) {
            data += "L" + end;
        } else {
            const double chord = distance(start, step.end) * viewport.scale();
            const double radius =
                chord * (1.0 + step.bulge * step.bulge) / (4.0 * std::abs(step.bulge));
            const std::string size = svgNumber(radius);
            // Upwards in the drawing is downwards in the sense of the page's sweep flag.
            data += fmt::format("A{} {} 0 0 {} {}", size, size, step.bulge > 0.0 ? 0 : 1, end);
        }
        start = step.end;
    }
    return data;
}

/// A place on a run in the middle of its longest pipe, and the direction from the run's start to
/// its end there.
struct Middle {
    PagePoint place;
    double angle; ///< degrees on the page
};

double pageLength(const std::vector<PagePoint>& points) {
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    }
    return length;
}

std::vector<PagePoint> pagePoints(const PlanCurve& curve, const Viewport& viewport) {
    std::vector<PagePoint> points;
    for (const PlanPoint& point : flattened(curve)) {
        points.push_back(viewport.toPage(point));
    }
    return points;
}

Middle middleOf(const std::vector<PagePoint>& points) {
    double rest = pageLength(points) / 2.0;
    std::size_t i = 1;
    for (; i + 1 < points.size(); ++i) {
        const double piece =
            std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
        if (rest <= piece) {
            break;
        }
        rest -= piece;
    }
    const double dx = points[i].x - points[i - 1].x;
    const double dy = points[i].y - points[i - 1].y;
    const double piece = std::max(std::hypot(dx, dy), 1e-9);
    return {{points[i - 1].x + dx / piece * rest, points[i - 1].y + dy / piece * rest},
            std::atan2(dy, dx) * kDegrees};
}

std::optional<Middle> arrowPlace(const SceneRun& run, const Viewport& viewport) {
    std::optional<Middle> best;
    double longest = 0.0;
    for (const PlanCurve& curve : run.curves) {
        const std::vector<PagePoint> points = pagePoints(curve, viewport);
        const double length = pageLength(points);
        if (points.size() > 1 && length > longest) {
            longest = length;
            best = middleOf(points);
            const bool drawnFromStart =
                distance(curve.start, run.from) <= distance(curve.steps.back().end, run.from);
            best->angle += drawnFromStart != run.flowReversed ? 0.0 : 180.0;
        }
    }
    return longest < 2.4 * arrowLength(run, viewport) ? std::nullopt : best;
}

double shownRadius(const SceneNode& node, const Viewport& viewport) {
    return std::max(node.radius * viewport.scale(), style::kLeastNodeRadius);
}

std::string runMark(const SceneRun& run, const Viewport& viewport) {
    std::string data;
    for (const PlanCurve& curve : run.curves) {
        data += pathData(curve, viewport);
    }
    return fmt::format("<path d=\"{}\" stroke=\"{}\" stroke-width=\"{}\"/>\n", data, run.colour,
                       svgNumber(runWidth(run, viewport)));
}

std::string tankMark(const SceneNode& node, const Viewport& viewport) {
    const PageBox box = nodeBox(node, viewport);
    const char* line = node.onPath ? style::kPath : style::kTankLine;
    return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" rx=\"2\" fill=\"{}\" "
                       "stroke=\"{}\" stroke-width=\"2\"/>\n",
                       svgNumber(box.left), svgNumber(box.top), svgNumber(box.width()),
                       svgNumber(box.height()), style::kTankFill, line);
}

std::string ring(const PagePoint& place, double radius, const char* colour, double width) {
    return fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\" fill=\"none\" stroke=\"{}\" "
                       "stroke-width=\"{}\"/>\n",
                       svgNumber(place.x), svgNumber(place.y), svgNumber(radius), colour,
                       svgNumber(width));
}

std::string nodeMark(const SceneNode& node, const Viewport& viewport) {
    const PagePoint place = viewport.toPage(node.place);
    if (isFitting(node.shape)) {
        return fittingMark(place, node.shape, node.rotation, viewport.furniture());
    }
    const double radius = shownRadius(node, viewport);
    const char* colour = node.onPath ? style::kPath : style::kNetwork;
    std::string out;
    if (node.shape == NodeShape::box) {
        out = tankMark(node, viewport);
    } else {
        out = wellMark(place, radius, node.shape, node.rotation, colour, node.pathEnd);
        if (node.merged) {
            out += ring(place, radius * 0.5, colour, 1.4);
        }
    }
    if (node.root) {
        out += wellMark(place, style::kLeastNodeRadius * 0.7, NodeShape::round, 0.0, style::kInk,
                        true);
    }
    return out;
}

} // namespace

double arrowLength(const SceneRun& run, const Viewport& viewport) {
    return 2.2 * runWidth(run, viewport) + 5.5;
}

PageBox nodeBox(const SceneNode& node, const Viewport& viewport) {
    if (node.shape != NodeShape::box) {
        return boxAround(viewport.toPage(node.place), shownRadius(node, viewport) + 1.0);
    }
    const PagePoint a = viewport.toPage({node.box.left, node.box.top});
    const PagePoint b = viewport.toPage({node.box.right, node.box.bottom});
    const double growX = std::max(0.0, 2.0 * style::kLeastNodeRadius - (b.x - a.x)) / 2.0;
    const double growY = std::max(0.0, 2.0 * style::kLeastNodeRadius - (b.y - a.y)) / 2.0;
    return {a.x - growX, a.y - growY, b.x + growX, b.y + growY};
}

std::string contextMarks(const Scene& scene, const Viewport& viewport) {
    std::string data;
    for (const PlanCurve& curve : scene.context) {
        if (!curve.steps.empty()) {
            data += pathData(curve, viewport);
        }
    }
    return fmt::format("<path d=\"{}\" fill=\"none\" stroke=\"{}\" stroke-width=\"1.6\"/>\n", data,
                       style::kContext);
}

std::string runMarks(const Scene& scene, const Viewport& viewport) {
    std::string out = "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    for (const bool path : {false, true}) {
        for (const SceneRun& run : scene.runs) {
            if (run.onPath == path && !run.curves.empty()) {
                out += runMark(run, viewport);
            }
        }
    }
    return out + "</g>\n";
}

std::string flowMarks(const Scene& scene, const Viewport& viewport) {
    std::string out;
    if (!scene.showsFlow) {
        return out;
    }
    for (const SceneRun& run : scene.runs) {
        const std::optional<Middle> middle = arrowPlace(run, viewport);
        if (!run.isLowered && middle) {
            out += arrowMark(middle->place, middle->angle, run.colour, arrowLength(run, viewport));
        }
    }
    return out;
}

std::string nodeMarks(const Scene& scene, const Viewport& viewport) {
    std::string out;
    for (const SceneNode& node : scene.nodes) {
        out += nodeMark(node, viewport);
    }
    return out;
}

std::string arrowMark(const PagePoint& place, double angle, const char* colour, double length) {
    const double tip = length * 0.6;
    const double back = -length * 0.5;
    const double half = length * 0.5;
    return fmt::format("<path d=\"M{0} 0L{1} {2}L{3} 0L{1} -{2}Z\" fill=\"{4}\" stroke=\"#fff\" "
                       "stroke-width=\"1.4\" transform=\"translate({5} {6}) rotate({7})\"/>\n",
                       svgNumber(tip), svgNumber(back), svgNumber(half), svgNumber(back * 0.45),
                       colour, svgNumber(place.x), svgNumber(place.y), svgNumber(angle));
}

std::string wellMark(const PagePoint& place, double radius, NodeShape shape, double rotation,
                     const char* colour, bool filled) {
    const std::string look = fmt::format("fill=\"{}\" stroke=\"{}\" stroke-width=\"1.8\"",
                                         filled ? colour : "#fff", colour);
    if (shape == NodeShape::round) {
        return fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\" {}/>\n", svgNumber(place.x),
                           svgNumber(place.y), svgNumber(radius), look);
    }
    return fmt::format("<rect x=\"-{0}\" y=\"-{0}\" width=\"{1}\" height=\"{1}\" {2} "
                       "transform=\"translate({3} {4}) rotate({5})\"/>\n",
                       svgNumber(radius), svgNumber(2.0 * radius), look, svgNumber(place.x),
                       svgNumber(place.y), svgNumber(-rotation * kDegrees));
}

} // namespace pipenet
