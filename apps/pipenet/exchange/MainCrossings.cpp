#include "exchange/MainCrossings.h"

#include <algorithm>

namespace pipenet {

namespace {

/// A main's chord and the box around it.
struct Chord {
    std::size_t link;
    PlanPoint a, b;
    double left, right, low, high;
};

std::vector<Chord> chordsOf(const ModelLayout& layout) {
    std::vector<Chord> chords;
    for (std::size_t i = 0; i < layout.links.size(); ++i) {
        const std::vector<PlanPoint>& points = layout.links[i].points;
        if (!points.empty()) {
            const PlanPoint& a = points.front();
            const PlanPoint& b = points.back();
            chords.push_back({i, a, b, std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y),
                              std::max(a.y, b.y)});
        }
    }
    std::sort(chords.begin(), chords.end(),
              [](const Chord& one, const Chord& other) { return one.left < other.left; });
    return chords;
}

/// On which side of a chord a place lies: above 0 on the left, 0 on its line.
double side(const Chord& chord, const PlanPoint& place) {
    return (chord.b.x - chord.a.x) * (place.y - chord.a.y) -
           (chord.b.y - chord.a.y) * (place.x - chord.a.x);
}

bool meet(const Chord& one, const Chord& other) {
    const auto onBothSides = [](const Chord& chord, const PlanPoint& p, const PlanPoint& q) {
        const double first = side(chord, p);
        const double second = side(chord, q);
        return (first <= 0.0 && second >= 0.0) || (first >= 0.0 && second <= 0.0);
    };
    return one.low <= other.high && other.low <= one.high && onBothSides(one, other.a, other.b) &&
           onBothSides(other, one.a, one.b);
}

bool shareNode(const ModelLink& one, const ModelLink& other) {
    return one.from == other.from || one.from == other.to || one.to == other.from ||
           one.to == other.to;
}

} // namespace

std::vector<std::pair<std::size_t, std::size_t>> mainCrossings(const PipeModel& model,
                                                               const ModelLayout& layout) {
    const std::vector<Chord> chords = chordsOf(layout);
    std::vector<std::pair<std::size_t, std::size_t>> crossings;
    for (std::size_t i = 0; i < chords.size(); ++i) {
        for (std::size_t k = i + 1; k < chords.size() && chords[k].left <= chords[i].right; ++k) {
            const std::size_t a = std::min(chords[i].link, chords[k].link);
            const std::size_t b = std::max(chords[i].link, chords[k].link);
            if (meet(chords[i], chords[k]) && !shareNode(model.links[a], model.links[b])) {
                crossings.emplace_back(a, b);
            }
        }
    }
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

} // namespace pipenet
