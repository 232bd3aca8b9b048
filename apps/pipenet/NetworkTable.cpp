#include "NetworkTable.h"

#include "HandleText.h"
#include "NetworkTree.h"
#include "Systems.h"
#include "TextTable.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace pipenet {

namespace {

std::string elevation(double value) {
    return fmt::format("{:.3f}", value);
}

/// Water in the direction of the walk runs away from the root.
const char* flowArrow(const GravitySeg& seg) {
    return seg.flowReversed == 0 ? "→" : "←";
}

std::vector<bool> onPath(const GravitySearchObject& network) {
    std::vector<bool> marks(static_cast<std::size_t>(network.wells.GetSize()), false);
    for (INT_PTR i = 0; i < network.pathWells.GetSize(); ++i) {
        marks[static_cast<std::size_t>(network.pathWells[i])] = true;
    }
    return marks;
}

std::string pathLine(const GravitySearchObject& network) {
    if (network.pathWells.IsEmpty()) {
        return "";
    }
    double length = 0.0;
    for (INT_PTR i = 0; i < network.pathSegs.GetSize(); ++i) {
        length += network.segs[network.pathSegs[i]].length;
    }
    const Well& end = network.wells[network.pathWells[0]];
    const Well& root = network.wells[network.pathWells[network.pathWells.GetUpperBound()]];
    return fmt::format("Path (●): {} to {}, {}, {:.2f} m\n", nodeName(end), nodeName(root),
                       counted(network.pathSegs.GetSize(), "segment", "segments"), metres(length));
}

std::vector<std::string> segmentCells(const GravitySeg& seg) {
    return {fmt::format("{:.2f}", metres(seg.length)),
            fmt::format("DN{}", seg.diameter),
            flowArrow(seg),
            elevation(seg.startElevation),
            elevation(seg.endElevation),
            fmt::format("{}", seg.slope),
            utf8(seg.material),
            handlesText(seg.pipeIds)};
}

std::vector<std::string> rowOf(const GravitySearchObject& network, const TreeLine& line,
                               bool isOnPath) {
    const Well& well = network.wells[line.well];
    std::vector<std::string> cells{isOnPath ? "●" : "", line.indentation + nodeName(well),
                                   nodeKind(well), handleText(well.nodeEntity),
                                   handlesText(well.mergedEntities)};
    const std::vector<std::string> seg =
        well.inSeg < 0 ? std::vector<std::string>(8) : segmentCells(network.segs[well.inSeg]);
    cells.insert(cells.end(), seg.begin(), seg.end());
    return cells;
}

TextTable emptyTable() {
    return TextTable({{""},
                      {"Node"},
                      {"Kind"},
                      {"Handle"},
                      {"Merged"},
                      {"Length m", true},
                      {"Size"},
                      {"Flow"},
                      {"Low m", true},
                      {"High m", true},
                      {"Slope", true},
                      {"Material"},
                      {"Pipes"}});
}

std::string point(const AcGePoint3d& place) {
    return fmt::format("{}, {}, {}", place.x, place.y, place.z);
}

std::string end(const AcDbObjectId& entity, const AcGePoint3d& place) {
    return (entity.isNull() ? "open" : nameOf(entity)) + " at " + point(place);
}

} // namespace

std::string nodeName(const Well& well) {
    return well.number.IsEmpty() ? handleText(well.nodeEntity) : utf8(well.number);
}

std::string nodeKind(const Well& well) {
    if (well.isWell == 0) {
        return "tank";
    }
    return well.isSquareWell != 0 ? "square well" : "well";
}

std::string networkSummary(const GravitySearchObject& network) {
    INT_PTR tanks = 0;
    double length = 0.0;
    for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
        tanks += network.wells[i].isWell == 0 ? 1 : 0;
    }
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        length += network.segs[i].length;
    }
    return fmt::format("{}, {}, {}, {:.2f} m of pipe, root {}",
                       counted(network.wells.GetSize() - tanks, "well", "wells"),
                       counted(tanks, "tank", "tanks"),
                       counted(network.segs.GetSize(), "segment", "segments"), metres(length),
                       nodeName(network.wells[network.rootWell]));
}

std::string networkTable(const GravitySearchObject& network) {
    TextTable table = emptyTable();
    const std::vector<bool> marks = onPath(network);
    for (const TreeLine& line : treeLines(network)) {
        table.add(rowOf(network, line, marks[static_cast<std::size_t>(line.well)]));
    }
    const CString system = network.segs.GetSize() > 0 ? network.segs[0].systemName : CString();
    return fmt::format("Gravity network {}: {}\n", utf8(system), networkSummary(network)) +
           pathLine(network) +
           "Flow: ← towards the root, → away from it; the segment of a line leads to the node's "
           "parent\n\n" +
           table.text();
}

std::string segmentTable(const GravitySeg& seg, int result) {
    TextTable table({{"Gravity segment"}, {utf8(seg.systemName)}});
    table.add({"ends found", result == 1 ? "both" : result == 2 ? "one" : "none"});
    table.add({"start", end(seg.startEntity, seg.startPoint)});
    table.add({"end", end(seg.endEntity, seg.endPoint)});
    table.add({"pipes", handlesText(seg.pipeIds)});
    table.add({"length", fmt::format("{:.2f} m", metres(seg.length))});
    table.add({"size", fmt::format("DN{} {}", seg.diameter, utf8(seg.material))});
    table.add({"elevations", elevation(seg.startElevation) + " m at the start, " +
                                 elevation(seg.endElevation) + " m at the end"});
    table.add({"slope", fmt::format("{}", seg.slope)});
    table.add({"flow text", utf8(seg.flowText)});
    table.add({"label", "at " + point(seg.annotatePoint) + " along " +
                            point(AcGePoint3d() + seg.annotateVector)});
    return table.text();
}

} // namespace pipenet
