// A run knows its pipes, not their order, and not which part of each belongs to it. Both follow
// from where the pipes come nearest to one another: a pipe is entered at the place nearest to where
// the way has come to, and left at the place nearest to the pipe that comes next.

#include "findings/RunPath.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pipenet {

namespace {

using Line = std::vector<PlanPoint>;

/// A place on a line: behind the vertex `index`, by the share `part` of the way to the next one.
struct Spot {
    std::size_t index = 0;
    double part = 0.0;
    PlanPoint point;
    double distance = std::numeric_limits<double>::infinity(); ///< of what was projected

    bool isBefore(const Spot& other) const {
        return index < other.index || (index == other.index && part < other.part);
    }
};

Spot nearest(const Line& line, const PlanPoint& place) {
    Spot best;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const double dx = line[i + 1].x - line[i].x;
        const double dy = line[i + 1].y - line[i].y;
        const double square = dx * dx + dy * dy;
        const double along =
            square > 0.0 ? ((place.x - line[i].x) * dx + (place.y - line[i].y) * dy) / square : 0.0;
        const double part = std::clamp(along, 0.0, 1.0);
        const PlanPoint point{line[i].x + part * dx, line[i].y + part * dy};
        if (const double away = distance(point, place); away < best.distance) {
            best = {i, part, point, away};
        }
    }
    return best;
}

/// Where the way changes from one line to another.
struct Joint {
    Spot leaves;
    Spot enters;
};

/// One of the two touches the other with an end of its own.
Joint jointOf(const Line& from, const Line& to) {
    Joint best;
    for (const PlanPoint& end : {to.front(), to.back()}) {
        if (const Spot spot = nearest(from, end); spot.distance < best.leaves.distance) {
            best = {spot, nearest(to, end)};
        }
    }
    for (const PlanPoint& end : {from.back(), from.front()}) {
        const Spot spot = nearest(to, end);
        if (spot.distance < best.leaves.distance) {
            best = {nearest(from, end), spot};
            best.leaves.distance = spot.distance;
        }
    }
    return best;
}

void append(Line& path, const PlanPoint& point) {
    if (path.empty() || path.back().x != point.x || path.back().y != point.y) {
        path.push_back(point);
    }
}

/// The part of a line between two places, in the direction from `from` to `to`.
void appendPart(Line& path, const Line& line, const Spot& from, const Spot& to) {
    append(path, from.point);
    if (from.isBefore(to)) {
        for (std::size_t i = from.index + 1; i <= to.index; ++i) {
            append(path, line[i]);
        }
    } else {
        for (std::size_t i = from.index; i > to.index; --i) {
            append(path, line[i]);
        }
    }
    append(path, to.point);
}

std::vector<Line> linesOf(const CheckedRun& run) {
    std::vector<AcDbObjectId> seen;
    std::vector<Line> lines;
    for (const AcDbObjectId& pipe : run.pipes) {
        if (std::find(seen.begin(), seen.end(), pipe) != seen.end()) {
            continue;
        }
        seen.push_back(pipe);
        if (const PlanCurve curve = planCurve(pipe); !curve.steps.empty()) {
            lines.push_back(flattened(curve));
        }
    }
    return lines;
}

/// Takes the line for which `away` gives the least out of the list.
template<class Away>
Line takeNearest(std::vector<Line>& lines, const Away& away) {
    std::size_t best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const double here = away(lines[i]); here < least) {
            least = here;
            best = i;
        }
    }
    Line line = std::move(lines[best]);
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(best));
    return line;
}

} // namespace

std::vector<PlanPoint> runPath(const CheckedRun& run) {
    const PlanPoint start{run.start.x, run.start.y};
    const PlanPoint end{run.end.x, run.end.y};
    Line path{start};
    std::vector<Line> rest = linesOf(run);
    if (!rest.empty()) {
        Line line =
            takeNearest(rest, [&start](const Line& next) { return nearest(next, start).distance; });
        Spot entered = nearest(line, start);
        while (!rest.empty()) {
            Line next = takeNearest(
                rest, [&line](const Line& other) { return jointOf(line, other).leaves.distance; });
            const Joint joint = jointOf(line, next);
            appendPart(path, line, entered, joint.leaves);
            line = std::move(next);
            entered = joint.enters;
        }
        appendPart(path, line, entered, nearest(line, end));
    }
    append(path, end);
    return path;
}

} // namespace pipenet
