// The bare graph of a town by the shortest road there is to it: a tree over the wells and one over
// the free ends of the pipes. An end within reach of a well joins it; any other end joins the
// nearest free end of another pipe within the gap. Then a walk from the root, breadth first. No
// texts, no directions, no records: what remains is what joining and walking cost.

#include <geos/geom/Envelope.h>
#include <geos/index/strtree/TemplateSTRtree.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using Tree = geos::index::strtree::TemplateSTRtree<int>;

/// An end this near to the centre of a well joins it, metres.
constexpr double kWellReach = 0.6;
/// Two free ends nearer than this join, metres.
constexpr double kGap = 0.44;
constexpr int kNone = -1;

struct Place {
    double x;
    double y;
};

struct Town {
    std::vector<Place> wells;
    std::vector<Place> ends;  ///< two for each pipe
    std::vector<int> roots;   ///< wells
    std::vector<long> counts; ///< wells that hang together with each root
};

double distance(const Place& a, const Place& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

geos::geom::Envelope around(const Place& place, double reach) {
    return {place.x - reach, place.x + reach, place.y - reach, place.y + reach};
}

Tree treeOver(const std::vector<Place>& places, const std::vector<int>& chosen) {
    Tree tree(10, chosen.size());
    for (const int i : chosen) {
        const Place& place = places[static_cast<std::size_t>(i)];
        tree.insert(geos::geom::Envelope(place.x, place.x, place.y, place.y), i);
    }
    return tree;
}

/// The place of the tree nearest to `from` within `reach`, but for those left out; -1 for none.
template<class LeftOut>
int nearest(Tree& tree, const std::vector<Place>& places, const Place& from, double reach,
            const LeftOut& isLeftOut) {
    int best = kNone;
    double bestDistance = reach;
    tree.query(around(from, reach), [&](int i) {
        const double far = distance(places[static_cast<std::size_t>(i)], from);
        if (far < bestDistance && !isLeftOut(i)) {
            best = i;
            bestDistance = far;
        }
        return true;
    });
    return best;
}

/// For each end the well that it joins, else none.
std::vector<int> joinWells(const Town& town) {
    std::vector<int> all(town.wells.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = static_cast<int>(i);
    }
    Tree tree = treeOver(town.wells, all);
    std::vector<int> joined(town.ends.size());
    for (std::size_t i = 0; i < joined.size(); ++i) {
        joined[i] = nearest(tree, town.wells, town.ends[i], kWellReach, [](int) { return false; });
    }
    return joined;
}

/// For each end without a well the free end that it joins, else none.
std::vector<int> joinFreeEnds(const Town& town, const std::vector<int>& wells) {
    std::vector<int> free;
    for (std::size_t i = 0; i < wells.size(); ++i) {
        if (wells[i] == kNone) {
            free.push_back(static_cast<int>(i));
        }
    }
    Tree tree = treeOver(town.ends, free);
    std::vector<int> joined(town.ends.size(), kNone);
    for (const int i : free) {
        const auto ofOnePipe = [i](int other) { return other / 2 == i / 2; };
        joined[static_cast<std::size_t>(i)] =
            nearest(tree, town.ends, town.ends[static_cast<std::size_t>(i)], kGap, ofOnePipe);
    }
    return joined;
}

/// The ends at each well, one behind the other.
struct EndsOfWells {
    std::vector<int> first; ///< for each well where its ends begin, and behind the last one
    std::vector<int> ends;
};

EndsOfWells sortByWell(const std::vector<int>& wells, std::size_t count) {
    EndsOfWells sorted{std::vector<int>(count + 1, 0), {}};
    for (const int well : wells) {
        if (well != kNone) {
            ++sorted.first[static_cast<std::size_t>(well) + 1];
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        sorted.first[i + 1] += sorted.first[i];
    }
    sorted.ends.resize(static_cast<std::size_t>(sorted.first.back()));
    std::vector<int> next(sorted.first.begin(), sorted.first.end() - 1);
    for (std::size_t end = 0; end < wells.size(); ++end) {
        if (wells[end] != kNone) {
            const auto at = static_cast<std::size_t>(next[static_cast<std::size_t>(wells[end])]++);
            sorted.ends[at] = static_cast<int>(end);
        }
    }
    return sorted;
}

/// The graph of a town and the walks through it.
class Network {
public:
    explicit Network(const Town& town)
        : wells_(joinWells(town)), fellows_(joinFreeEnds(town, wells_)),
          atWells_(sortByWell(wells_, town.wells.size())) {}

    /// For each well the one before it on the way from `root`; itself for the root, else none.
    std::vector<int> walk(int root) const {
        std::vector<int> parents(atWells_.first.size() - 1, kNone);
        std::vector<int> queue{root};
        parents[static_cast<std::size_t>(root)] = root;
        for (std::size_t next = 0; next < queue.size(); ++next) {
            const auto well = static_cast<std::size_t>(queue[next]);
            for (int i = atWells_.first[well]; i < atWells_.first[well + 1]; ++i) {
                const int far = wellBehind(atWells_.ends[static_cast<std::size_t>(i)]);
                if (far != kNone && parents[static_cast<std::size_t>(far)] == kNone) {
                    parents[static_cast<std::size_t>(far)] = queue[next];
                    queue.push_back(far);
                }
            }
        }
        return parents;
    }

private:
    /// Follows the pipes from one end to the well at the far end of the run.
    int wellBehind(int end) const {
        for (std::size_t steps = 0; steps < fellows_.size(); ++steps) {
            const auto far = static_cast<std::size_t>(end ^ 1);
            if (wells_[far] != kNone || fellows_[far] == kNone) {
                return wells_[far];
            }
            end = fellows_[far];
        }
        return kNone;
    }

    std::vector<int> wells_;
    std::vector<int> fellows_;
    EndsOfWells atWells_;
};

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells(1);
    for (const char c : line) {
        if (c == ',') {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    return cells;
}

Place placeOf(const std::string& x, const std::string& y) {
    Place place{};
    std::from_chars(x.data(), x.data() + x.size(), place.x);
    std::from_chars(y.data(), y.data() + y.size(), place.y);
    return place;
}

Town readTown(const std::string& path) {
    std::ifstream file(path);
    Town town;
    std::vector<std::string> roots;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = cellsOf(line);
        if (cells[0] == "system") {
            roots.push_back(cells.at(3));
            town.counts.push_back(std::stol(cells.at(7)));
            town.roots.push_back(kNone);
        } else if (cells[0] == "well") {
            for (std::size_t i = 0; i < roots.size(); ++i) {
                if (roots[i] == cells.at(1)) {
                    town.roots[i] = static_cast<int>(town.wells.size());
                }
            }
            town.wells.push_back(placeOf(cells.at(2), cells.at(3)));
        } else {
            town.ends.push_back(placeOf(cells.at(2), cells.at(3)));
            town.ends.push_back(placeOf(cells.at(4), cells.at(5)));
        }
    }
    if (town.wells.empty()) {
        throw std::runtime_error("no town in " + path);
    }
    return town;
}

double userMilliseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return 1000.0 * static_cast<double>(usage.ru_utime.tv_sec) +
           0.001 * static_cast<double>(usage.ru_utime.tv_usec);
}

/// Joins and walks once; the walks of all roots.
std::vector<std::vector<int>> solve(const Town& town) {
    const Network network(town);
    std::vector<std::vector<int>> walks;
    for (const int root : town.roots) {
        walks.push_back(network.walk(root));
    }
    return walks;
}

void check(const Town& town, const std::vector<std::vector<int>>& walks) {
    for (std::size_t i = 0; i < walks.size(); ++i) {
        long reached = 0;
        for (const int parent : walks[i]) {
            reached += parent == kNone ? 0 : 1;
        }
        if (reached != town.counts[i]) {
            throw std::runtime_error("another count of wells was reached than the town has");
        }
    }
}

/// As many times as fit into the least time, their mean.
void measure(const Town& town) {
    using Clock = std::chrono::steady_clock;
    constexpr double leastMilliseconds = 200.0;
    double wall = 0.0;
    double user = 0.0;
    int times = 0;
    while (wall < leastMilliseconds) {
        const double userBegin = userMilliseconds();
        const auto begin = Clock::now();
        const auto walks = solve(town);
        wall += std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
        user += userMilliseconds() - userBegin;
        ++times;
        check(town, walks);
    }
    std::printf("%.6f %.6f\n", wall / times, user / times);
}

int run(int argc, char** argv) {
    if (argc != 3) {
        std::fputs(
            "usage: strtree_peer TOWN.csv REPETITIONS\n\n"
            "Prints for each repetition the wall time and the time in user mode of one run, in\n"
            "milliseconds.\n",
            stderr);
        return 2;
    }
    const Town town = readTown(argv[1]);
    for (int left = std::stoi(argv[2]); left > 0; --left) {
        measure(town);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "strtree_peer: %s\n", error.what());
        return 1;
    }
}
