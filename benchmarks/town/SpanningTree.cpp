#include "town/SpanningTree.h"

#include <cmath>
#include <numeric>
#include <utility>

namespace benchmark_town {

namespace {

using Edge = std::pair<std::size_t, std::size_t>;

/// Which places hang together already.
class Groups {
public:
    explicit Groups(std::size_t count) : leaders_(count) {
        std::iota(leaders_.begin(), leaders_.end(), std::size_t{0});
    }

    /// False when the two hung together before.
    bool join(std::size_t a, std::size_t b) {
        const std::size_t first = leader(a);
        const std::size_t second = leader(b);
        leaders_[second] = first;
        return first != second;
    }

private:
    std::size_t leader(std::size_t place) {
        while (leaders_[place] != place) {
            leaders_[place] = leaders_[leaders_[place]];
            place = leaders_[place];
        }
        return place;
    }

    std::vector<std::size_t> leaders_;
};

std::vector<Edge> neighbours(std::size_t count, std::size_t columns, bool diagonals) {
    std::vector<Edge> edges;
    for (std::size_t i = 0; i < count; ++i) {
        const bool hasLeft = i % columns != 0;
        const bool hasRight = i % columns + 1 != columns;
        if (hasLeft) {
            edges.emplace_back(i - 1, i);
        }
        if (i < columns) {
            continue;
        }
        edges.emplace_back(i - columns, i);
        if (diagonals && hasLeft) {
            edges.emplace_back(i - columns - 1, i);
        }
        if (diagonals && hasRight) {
            edges.emplace_back(i - columns + 1, i);
        }
    }
    return edges;
}

/// Gives each place the one before it on the way from place 0.
void rootTree(SpanningTree& tree, const std::vector<std::vector<std::size_t>>& joined) {
    tree.parents.assign(tree.places.size(), SpanningTree::kNone);
    tree.order.push_back(0);
    for (std::size_t next = 0; next < tree.order.size(); ++next) {
        const std::size_t place = tree.order[next];
        for (const std::size_t other : joined[place]) {
            if (static_cast<int>(other) != tree.parents[place]) {
                tree.parents[other] = static_cast<int>(place);
                tree.order.push_back(other);
            }
        }
    }
}

} // namespace

SpanningTree growTree(std::size_t count, double pitch, double jitter, bool diagonals,
                      Chance& chance) {
    const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
    SpanningTree tree;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = i / columns;
        const double x = pitch * static_cast<double>(i % columns) + chance.between(-jitter, jitter);
        const double y = pitch * static_cast<double>(row) + chance.between(-jitter, jitter);
        tree.places.push_back({x, y});
    }
    std::vector<Edge> edges = neighbours(count, columns, diagonals);
    chance.shuffle(edges);
    Groups groups(count);
    std::vector<std::vector<std::size_t>> joined(count);
    for (const auto& [a, b] : edges) {
        if (groups.join(a, b)) {
            joined[a].push_back(b);
            joined[b].push_back(a);
        }
    }
    rootTree(tree, joined);
    return tree;
}

} // namespace benchmark_town
