#include "PressureTable.h"

#include "HandleText.h"
#include "RunParents.h"
#include "Systems.h"
#include "TextTable.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace pipenet {

namespace {

/// Deeper runs are shown at this depth, with the depth beside them.
constexpr int kDeepestIndentation = 12;

struct RunLine {
    int seg;
    int depth;
};

/// The runs from the root on, depth first, children in the order of the search.
std::vector<RunLine> runLines(PressureSearchObject& network) {
    std::vector<std::vector<int>> children(static_cast<std::size_t>(network.segs.GetSize()));
    const std::vector<int> parents = runParents(network.segs);
    for (std::size_t i = 0; i < parents.size(); ++i) {
        if (parents[i] >= 0) {
            children[static_cast<std::size_t>(parents[i])].push_back(static_cast<int>(i));
        }
    }
    std::vector<RunLine> lines;
    std::vector<RunLine> open{{network.rootSeg, 0}};
    while (!open.empty()) {
        const RunLine line = open.back();
        open.pop_back();
        lines.push_back(line);
        const std::vector<int>& next = children[static_cast<std::size_t>(line.seg)];
        for (auto child = next.rbegin(); child != next.rend(); ++child) {
            open.push_back({*child, line.depth + 1});
        }
    }
    return lines;
}

std::string indented(const RunLine& line) {
    const int shown = std::min(line.depth, kDeepestIndentation);
    std::string text(static_cast<std::size_t>(shown) * 2, ' ');
    if (line.depth > shown) {
        text += fmt::format("({}) ", line.depth);
    }
    return text + fmt::format("{}", line.seg);
}

std::string planText(const AcGePoint3d& point) {
    return fmt::format("{:.2f}, {:.2f}", point.x, point.y);
}

std::vector<std::string> runCells(PressureSeg& seg, const RunLine& line) {
    return {indented(line),
            seg.isArc != 0 ? "arc" : "",
            planText(seg.GetBeginPoint()),
            planText(seg.GetSearchPoint()),
            fmt::format("{:.2f}", metres(seg.GetLength())),
            fmt::format("DN{}", seg.diameter),
            fmt::format("{:.3f}", seg.startElevation),
            fmt::format("{:.3f}", seg.endElevation),
            utf8(seg.material),
            handlesText(seg.valveIds),
            handlesText(seg.meterIds),
            handlesText(seg.pipeIds)};
}

} // namespace

std::string pressureCounts(PressureSearchObject& network) {
    double length = 0.0;
    int valves = 0;
    int meters = 0;
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        length += network.segs[i].GetLength();
        valves += network.segs[i].valveIds.length();
        meters += network.segs[i].meterIds.length();
    }
    return fmt::format(
        "{}, {}, {}, {:.2f} m of pipe", counted(network.segs.GetSize(), "run", "runs"),
        counted(valves, "valve", "valves"), counted(meters, "meter", "meters"), metres(length));
}

std::string pressureTable(PressureSearchObject& network) {
    TextTable table({{"Run"},
                     {""},
                     {"From"},
                     {"To"},
                     {"Length m", true},
                     {"Size"},
                     {"Begin m", true},
                     {"Far m", true},
                     {"Material"},
                     {"Valves"},
                     {"Meters"},
                     {"Pipes"}});
    for (const RunLine& line : runLines(network)) {
        table.add(runCells(network.segs[line.seg], line));
    }
    return fmt::format("Pressure network {}: {}\n\n{}",
                       utf8(network.segs[network.rootSeg].systemName), pressureCounts(network),
                       table.text());
}

std::string pressureSegmentTable(PressureSeg& seg) {
    TextTable table({{"Pressure segment"}, {utf8(seg.systemName)}});
    table.add({"from", planText(seg.startPoint)});
    table.add({"to", planText(seg.endPoint)});
    table.add({"pipes", handlesText(seg.pipeIds)});
    table.add({"length", fmt::format("{:.2f} m", metres(seg.GetLength()))});
    table.add({"size", fmt::format("DN{} {}", seg.diameter, utf8(seg.material))});
    table.add({"elevations", fmt::format("{:.3f} m upstream, {:.3f} m downstream",
                                         seg.startElevation, seg.endElevation)});
    table.add({"slope", fmt::format("{}", seg.slope)});
    table.add({"flow text", utf8(seg.flowText)});
    table.add({"label", "at " + planText(seg.GetAnnoatePoint())});
    return table.text();
}

} // namespace pipenet
