#pragma once

#include <cstddef>
#include <vector>

#include "records/LargeVector.h"

namespace tkvlt {

/// Parts of a result that are filled from the drawing only when the walk is over, in the order of
/// the drawing: the walk comes to entities all over it, and memory is read far faster in order.
class LaterReading {
public:
    /// @param places so many are there.
    explicit LaterReading(int places) : partOf_(static_cast<std::size_t>(places), kNone) {}

    /// @param place where the part's turn comes, by the place in the drawing of the entity that it
    ///              is filled from; once for each.
    /// @param part its index in the result.
    void Add(int place, int part) { partOf_[static_cast<std::size_t>(place)] = part; }

    /// Calls `read` with every part that was added, and some parts earlier `announce`, so that the
    /// memory of the part can be fetched meanwhile.
    template<class Announce, class Read>
    void ReadInOrder(Announce announce, Read read) const {
        ReadInOrder([](int) {}, announce, read);
    }

    /// The same, and as much earlier still `announceFirst`, to fetch what tells where the rest
    /// lies.
    template<class AnnounceFirst, class Announce, class Read>
    void ReadInOrder(AnnounceFirst announceFirst, Announce announce, Read read) const {
        std::vector<int> parts;
        for (const int part : partOf_) {
            if (part != kNone) {
                parts.push_back(part);
            }
        }
        constexpr std::size_t ahead = 8;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (i + 2 * ahead < parts.size()) {
                announceFirst(parts[i + 2 * ahead]);
            }
            if (i + ahead < parts.size()) {
                announce(parts[i + ahead]);
            }
            read(parts[i]);
        }
    }

private:
    static constexpr int kNone = -1;

    LargeVector<int> partOf_;
};

} // namespace tkvlt
