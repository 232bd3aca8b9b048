#pragma once

#include <unordered_map>
#include <vector>

#include "gravity/ChainFrame.h"

namespace tkvlt {

class GravityNetworkSearch;

/// Foresees which ways of a chain can still come to an end: to a well, a tank or a known node.
///
/// Trying ways and taking them back takes time that grows with the number of ways through a
/// drawing, which for pipes that cross in a grid is beyond any measure. What lies ahead depends on
/// little, though: on the pipe, on which of its ends is free, and on the pipes of the chain, which
/// are closed to it. So the ways are a graph of two places a pipe, and a way that leads nowhere in
/// that graph need not be tried. Since a chain uses each pipe once, a route that would use both
/// places of a pipe is none; then the routes without the one and without the other are looked for.
///
/// One outlook serves one trace, in which nothing leaves the pools. The ways out of a place are
/// worked out once.
class ChainOutlook {
public:
    explicit ChainOutlook(GravityNetworkSearch& search);

    /// False when the chain as it stands comes to no end by way of `branch`. True when it does, or
    /// when too many routes would have to be looked at. A branch for which it is true is to be
    /// followed at once.
    bool MayEnd(const ChainBranch& branch);
    /// The chain got shorter: what was closed is open again.
    void ChainTakenBack();

private:
    enum class Answer { kNoRoute, kRoute, kUnknown };
    /// A pipe with a free end, and the places that a chain can go on to from there.
    struct Place {
        int pipe;
        int outThroughStart;
        bool isKnown = false;  ///< the following two are worked out
        bool endsHere = false; ///< a chain ends at the free end
        std::vector<int> ways; ///< in the order in which they are tried
        bool leadsNowhere = false;
        int visit = 0; ///< the last look-around that came here
    };
    using Places = std::vector<int>;

    int PlaceOf(const ChainBranch& branch);
    const Place& Explore(int place);
    Answer FindRoute(int start, Places& route);
    bool Reach(int start, const Places& barred, Places& route);
    bool IsClosed(int place, const Places& barred) const;
    bool FirstConflict(const Places& route, int& first, int& second) const;

    GravityNetworkSearch& search_;
    std::vector<Place> places_;
    std::unordered_map<int, int> numbers_; // of the places, by twice the pipe and the end
    Places visited_;                       // by the look-around under way
    int visit_ = 0;
    Places route_; // the rest of a route to an end, last place first
};

} // namespace tkvlt
