#include "exchange/PipeRun.h"

#include "exchange/MapScale.h"
#include "exchange/OwnTexts.h"
#include "HandleText.h"
#include "records/XdataKeys.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pipenet {

namespace {

constexpr double kSameLength = 0.0015; ///< metres; texts give whole millimetres

double stepLength(const PlanPoint& start, const PlanStep& step) {
    const double chord = distance(start, step.end);
    if (step.bulge == 0.0) {
        return chord;
    }
    const double turn = 4.0 * std::atan(std::abs(step.bulge));
    return chord / (2.0 * std::sin(turn / 2.0)) * turn;
}

double lengthOf(const PlanCurve& curve) {
    double length = 0.0;
    PlanPoint start = curve.start;
    for (const PlanStep& step : curve.steps) {
        length += stepLength(start, step);
        start = step.end;
    }
    return length;
}

PlanPoint between(const PlanPoint& a, const PlanPoint& b, double share) {
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

/// Share of the way from a to b that comes nearest to the place.
double shareAlong(const PlanPoint& a, const PlanPoint& b, const PlanPoint& place) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double along = (place.x - a.x) * dx + (place.y - a.y) * dy;
    return square > 0.0 ? std::clamp(along / square, 0.0, 1.0) : 0.0;
}

/// The points of a way between two shares of it, the first below the second.
std::vector<PlanPoint> stretch(const std::vector<PlanPoint>& way, double from, double to) {
    const double whole = wayOf(way);
    std::vector<PlanPoint> points;
    double done = 0.0;
    for (std::size_t i = 1; i < way.size(); ++i) {
        const double leg = distance(way[i - 1], way[i]);
        const double begin = from * whole - done;
        const double end = to * whole - done;
        done += leg;
        if (leg == 0.0 || begin > leg || end < 0.0) {
            continue;
        }
        if (points.empty()) {
            points.push_back(between(way[i - 1], way[i], std::max(0.0, begin / leg)));
        }
        points.push_back(end >= leg ? way[i] : between(way[i - 1], way[i], end / leg));
    }
    return points;
}

/// Where two straight legs cross; nothing for legs that do not, or run side by side.
std::optional<PlanPoint> legCrossing(const PlanPoint& a, const PlanPoint& b, const PlanPoint& c,
                                     const PlanPoint& d) {
    const double ux = b.x - a.x;
    const double uy = b.y - a.y;
    const double vx = d.x - c.x;
    const double vy = d.y - c.y;
    const double area = ux * vy - uy * vx;
    if (area == 0.0) {
        return std::nullopt;
    }
    const double along = ((c.x - a.x) * vy - (c.y - a.y) * vx) / area;
    const double across = ((c.x - a.x) * uy - (c.y - a.y) * ux) / area;
    const bool meet = along >= 0.0 && along <= 1.0 && across >= 0.0 && across <= 1.0;
    return meet ? std::optional<PlanPoint>(between(a, b, along)) : std::nullopt;
}

std::optional<PlanPoint> crossing(const PipePiece& one, const PipePiece& other) {
    for (std::size_t i = 1; i < one.points.size(); ++i) {
        for (std::size_t k = 1; k < other.points.size(); ++k) {
            if (const auto place = legCrossing(one.points[i - 1], one.points[i],
                                               other.points[k - 1], other.points[k])) {
                return place;
            }
        }
    }
    return std::nullopt;
}

double endDistance(const PipePiece& piece, const PlanPoint& place) {
    return std::min(distance(piece.points.front(), place), distance(piece.points.back(), place));
}

/// Takes the piece that the way enters next out of the rest.
PiecePart nextPart(std::vector<PipePiece>& rest, const PlanPoint& place, double reach) {
    const auto nearer = [&place](const PipePiece& a, const PipePiece& b) {
        return endDistance(a, place) < endDistance(b, place);
    };
    auto next = std::min_element(rest.begin(), rest.end(), nearer);
    const bool byEnd = endDistance(*next, place) <= reach;
    if (!byEnd) {
        next = std::min_element(
            rest.begin(), rest.end(), [&place](const PipePiece& a, const PipePiece& b) {
                return nearestShare(a, place).distance < nearestShare(b, place).distance;
            });
    }
    PiecePart part{std::move(*next)};
    rest.erase(next);
    const bool atStart =
        distance(part.piece.points.front(), place) <= distance(part.piece.points.back(), place);
    part.from = byEnd ? (atStart ? 0.0 : 1.0) : nearestShare(part.piece, place).share;
    part.to = atStart ? 1.0 : 0.0;
    return part;
}

/// How near a place is to what comes next: the other pieces, or the end of the way.
double distanceToNext(const std::vector<PipePiece>& rest, const PlanPoint& end,
                      const PlanPoint& place) {
    if (rest.empty()) {
        return distance(end, place);
    }
    double least = std::numeric_limits<double>::infinity();
    for (const PipePiece& piece : rest) {
        least = std::min(least, nearestShare(piece, place).distance);
    }
    return least;
}

/// A way that goes over into the side of a pipe leaves the one before where the two cross, though
/// that one may be drawn on beyond.
void turnOff(std::vector<PiecePart>& run, PiecePart& next) {
    if (run.empty()) {
        return;
    }
    PiecePart& last = run.back();
    if (const std::optional<PlanPoint> place = crossing(last.piece, next.piece)) {
        last.to = nearestShare(last.piece, *place).share;
        next.from = nearestShare(next.piece, *place).share;
    }
}

std::optional<double> numberOf(const std::string& text) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    const bool whole = error == std::errc() && stop == end && std::isfinite(value);
    return whole ? std::optional<double>(value) : std::nullopt;
}

} // namespace

std::optional<double> heightText(const AcDbObjectId& id, const wchar_t* key) {
    // As the search reads numbers: what stands behind one does not count, and no number is none.
    const std::string text = utf8(XdataText(id, key));
    const std::size_t begin = text.find_first_not_of(" \t");
    const bool isNumber =
        begin != std::string::npos && text.find_first_of("0123456789") != std::string::npos;
    return isNumber ? std::optional<double>(NumberPrefix(XdataText(id, key))) : std::nullopt;
}

PipePiece pipePiece(const AcDbObjectId& id) {
    PipePiece piece;
    const PlanCurve curve = planCurve(id);
    piece.id = id;
    piece.points = flattened(curve);
    piece.points.resize(std::max<std::size_t>(2, piece.points.size()), piece.points.back());
    piece.length = lengthOf(curve);
    piece.startElevation = heightText(id, xdata::kStartElevation);
    piece.endElevation = heightText(id, xdata::kEndElevation);
    return piece;
}

std::vector<PipePiece> pipePieces(const AcDbObjectIdArray& ids) {
    std::vector<PipePiece> pieces;
    pieces.reserve(static_cast<std::size_t>(ids.length()));
    for (int i = 0; i < ids.length(); ++i) {
        pieces.push_back(pipePiece(ids[i]));
    }
    return pieces;
}

std::vector<PlanPoint> PiecePart::points() const {
    std::vector<PlanPoint> part = stretch(piece.points, std::min(from, to), std::max(from, to));
    if (part.empty()) {
        part.push_back(piece.points.front());
    }
    if (to < from) {
        std::reverse(part.begin(), part.end());
    }
    return part;
}

double PiecePart::length() const {
    return piece.length * std::abs(to - from);
}

std::optional<double> PiecePart::elevationAt(double share) const {
    if (share <= 0.0 || share >= 1.0) {
        return share <= 0.0 ? piece.startElevation : piece.endElevation;
    }
    if (!piece.startElevation || !piece.endElevation) {
        return std::nullopt;
    }
    return *piece.startElevation + (*piece.endElevation - *piece.startElevation) * share;
}

NearestShare nearestShare(const PipePiece& piece, const PlanPoint& place) {
    NearestShare nearest{0.0, std::numeric_limits<double>::infinity()};
    const double whole = wayOf(piece.points);
    double done = 0.0;
    for (std::size_t i = 1; i < piece.points.size(); ++i) {
        const PlanPoint& a = piece.points[i - 1];
        const PlanPoint& b = piece.points[i];
        const double share = shareAlong(a, b, place);
        const double here = distance(between(a, b, share), place);
        const double leg = distance(a, b);
        if (here < nearest.distance) {
            nearest = {whole > 0.0 ? (done + share * leg) / whole : 0.0, here};
        }
        done += leg;
    }
    return nearest;
}

std::vector<PiecePart> orderedRun(std::vector<PipePiece> pieces, const PlanPoint& start,
                                  const PlanPoint& end, double reach) {
    std::vector<PiecePart> run;
    PlanPoint place = start;
    while (!pieces.empty()) {
        // The first piece touches its well with an end, however wide the well is.
        const double within = run.empty() ? std::numeric_limits<double>::infinity() : reach;
        PiecePart part = nextPart(pieces, place, within);
        if (part.from > 0.0 && part.from < 1.0) {
            turnOff(run, part);
            const double back = distanceToNext(pieces, end, part.piece.points.front());
            const double on = distanceToNext(pieces, end, part.piece.points.back());
            part.to = back < on ? 0.0 : 1.0;
        }
        place = part.to > 0.5 ? part.piece.points.back() : part.piece.points.front();
        run.push_back(std::move(part));
    }
    return run;
}

std::optional<double> givenLength(const PipePiece& piece, double metresOfUnit) {
    const std::string text = utf8(XdataText(piece.id, own_texts::kLinkLength));
    const std::size_t slash = text.find('/');
    if (slash == std::string::npos) {
        return std::nullopt;
    }
    const std::optional<double> length = numberOf(text.substr(0, slash));
    const std::optional<double> drawn = numberOf(text.substr(slash + 1));
    const double now = piece.length * metresOfUnit;
    const bool holds = length && drawn && *length > 0.0 && std::abs(now - *drawn) <= kSameLength;
    return holds ? length : std::nullopt;
}

} // namespace pipenet
