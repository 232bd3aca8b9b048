#include "town/SpanningTrees.h"

#include <algorithm>
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

/// For each place those that it is joined with.
using Joined = std::vector<std::vector<std::size_t>>;

void join(Joined& joined, std::size_t a, std::size_t b) {
    joined[a].push_back(b);
    joined[b].push_back(a);
}

/// One tree: every edge in a random order, unless its ends hang together already.
Joined joinAtRandom(std::size_t count, std::vector<Edge> edges, Chance& chance) {
    chance.shuffle(edges);
    Groups groups(count);
    Joined joined(count);
    for (const auto& [a, b] : edges) {
        if (groups.join(a, b)) {
            join(joined, a, b);
        }
    }
    return joined;
}

/// Trees that grow from their roots at once: by turns each takes one more place, along any of the
/// edges that lead from it to places of none.
class Growth {
public:
    Growth(std::size_t count, std::size_t columns, const std::vector<Edge>& edges)
        : columns_(columns), owners_(count, kFree), neighbours_(count), joined_(count) {
        for (const auto& [a, b] : edges) {
            join(neighbours_, a, b);
        }
    }

    Joined grow(const std::vector<std::size_t>& roots, Chance& chance) {
        fronts_.resize(roots.size());
        for (std::size_t tree = 0; tree < roots.size(); ++tree) {
            take(roots[tree], tree);
        }
        bool grows = true;
        while (grows) {
            grows = false;
            for (std::size_t tree = 0; tree < roots.size(); ++tree) {
                grows = step(tree, chance) || grows;
            }
        }
        return std::move(joined_);
    }

private:
    static constexpr std::size_t kFree = static_cast<std::size_t>(-1);

    /// False when the tree has nowhere left to grow.
    bool step(std::size_t tree, Chance& chance) {
        std::vector<Edge>& front = fronts_[tree];
        while (!front.empty()) {
            std::swap(front[chance.below(front.size())], front.back());
            const auto [from, to] = front.back();
            front.pop_back();
            if (owners_[to] == kFree && !crossesAnother(from, to)) {
                join(joined_, from, to);
                take(to, tree);
                return true;
            }
        }
        return false;
    }

    void take(std::size_t place, std::size_t tree) {
        owners_[place] = tree;
        for (const std::size_t other : neighbours_[place]) {
            if (owners_[other] == kFree) {
                fronts_[tree].emplace_back(place, other);
            }
        }
    }

    /// Whether an edge across a corner has another tree's edge across the other two corners.
    bool crossesAnother(std::size_t from, std::size_t to) const {
        const std::size_t beside = from - from % columns_ + to % columns_;
        const std::size_t above = to - to % columns_ + from % columns_;
        if (beside == to || above == to || std::max(beside, above) >= owners_.size()) {
            return false;
        }
        const std::vector<std::size_t>& others = joined_[beside];
        return owners_[beside] != owners_[from] &&
               std::find(others.begin(), others.end(), above) != others.end();
    }

    std::size_t columns_;
    std::vector<std::size_t> owners_; ///< for each place its tree
    Joined neighbours_;
    Joined joined_;
    std::vector<std::vector<Edge>> fronts_; ///< of each tree, to places that may be taken since
};

/// Random places, no two alike; the parts of the grid where they lie depend on nothing but chance.
std::vector<std::size_t> drawRoots(std::size_t count, std::size_t columns, std::size_t trees,
                                   Chance& chance) {
    const std::size_t rows = (count + columns - 1) / columns;
    const auto partOf = [&](std::size_t whole) {
        return static_cast<std::size_t>(chance.between(0.0, 1.0) * static_cast<double>(whole));
    };
    std::vector<std::size_t> roots;
    while (roots.size() < trees) {
        const std::size_t row = partOf(rows);
        const std::size_t place = row * columns + partOf(columns);
        if (place < count && std::find(roots.begin(), roots.end(), place) == roots.end()) {
            roots.push_back(place);
        }
    }
    return roots;
}

/// Gives each place the one before it on the way from the root of its tree.
void rootTrees(SpanningTrees& trees, const Joined& joined) {
    trees.parents.assign(trees.places.size(), SpanningTrees::kNone);
    std::size_t next = 0;
    for (const std::size_t root : trees.roots) {
        trees.order.push_back(root);
        for (; next < trees.order.size(); ++next) {
            const std::size_t place = trees.order[next];
            for (const std::size_t other : joined[place]) {
                if (static_cast<int>(other) != trees.parents[place]) {
                    trees.parents[other] = static_cast<int>(place);
                    trees.order.push_back(other);
                }
            }
        }
        trees.firstSize = trees.firstSize == 0 ? next : trees.firstSize;
    }
}

std::vector<Place> layPlaces(std::size_t count, std::size_t columns, const Lattice& lattice,
                             Chance& chance) {
    std::vector<Place> places;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t column = i % columns;
        const std::size_t row = i / columns;
        const double x = lattice.pitch * static_cast<double>(column) +
                         chance.between(-lattice.jitter, lattice.jitter);
        const double y = lattice.pitch * static_cast<double>(row) +
                         chance.between(-lattice.jitter, lattice.jitter);
        places.push_back({x, y});
    }
    return places;
}

} // namespace

SpanningTrees growTrees(std::size_t count, const Lattice& lattice, std::size_t trees,
                        Chance& chance) {
    const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
    const std::vector<Edge> edges = neighbours(count, columns, lattice.diagonals);
    SpanningTrees grown;
    if (trees == 1) {
        grown.roots = {0};
        grown.places = layPlaces(count, columns, lattice, chance);
        rootTrees(grown, joinAtRandom(count, edges, chance));
    } else {
        grown.roots = drawRoots(count, columns, trees, chance);
        grown.places = layPlaces(count, columns, lattice, chance);
        rootTrees(grown, Growth(count, columns, edges).grow(grown.roots, chance));
    }
    return grown;
}

} // namespace benchmark_town
