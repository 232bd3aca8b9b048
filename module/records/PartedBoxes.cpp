#include "records/PartedBoxes.h"

#include <algorithm>
#include <utility>

namespace tkvlt {

namespace {

/// Appends what lies in an index behind `item`.
template<class Index>
void CollectBehind(int item, const Index& index, const PlanBox& reached, Indices& items) {
    Indices found;
    index.Collect(reached, found);
    for (const int other : found) {
        if (other > item) {
            items.push_back(other);
        }
    }
}

} // namespace

PartedBoxes::PartedBoxes(const std::vector<PlanBox>& wholes, double reach, double finestCell)
    : wholes_(static_cast<int>(wholes.size())), reach_(reach), tree_(wholes), lists_(wholes.size()),
      firstPart_(wholes.size(), kNone), byPlace_(finestCell) {
    ListNear(wholes);
    NoteNearUnlisted();
}

/// Two parts come near one another where their wholes do, each of which they may leave by the
/// reach: three reaches in all, and as many once more for what rounding adds to each.
void PartedBoxes::ListNear(const std::vector<PlanBox>& wholes) {
    constexpr double reaches = 6.0;
    constexpr std::size_t ahead = 8;
    const LargeVector<int>& items = tree_.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i + ahead < items.size()) {
            FetchAhead(wholes[static_cast<std::size_t>(items[i + ahead])]);
        }
        const auto whole = static_cast<std::size_t>(items[i]);
        Indices near;
        tree_.Collect(wholes[whole].Widened(reaches * reach_), near);
        if (near.size() <= kMostNear) {
            lists_[whole] = {static_cast<std::uint32_t>(near_.size()),
                             static_cast<int>(near.size())};
            near_.insert(near_.end(), near.begin(), near.end());
        }
    }
}

/// A whole without a list does not know who keeps parts near it.
void PartedBoxes::NoteNearUnlisted() {
    const auto hasNone = [](const NearList& list) { return list.count == kNone; };
    if (std::none_of(lists_.begin(), lists_.end(), hasNone)) {
        return;
    }
    isNearUnlisted_.resize(lists_.size());
    for (std::size_t whole = 0; whole < lists_.size(); ++whole) {
        ForEachNear(lists_[whole], [&](int other) {
            isNearUnlisted_[whole] = isNearUnlisted_[whole] || !IsListed(other);
        });
    }
}

bool PartedBoxes::IsWithin(const PlanBox& box, const PlanBox& whole) const {
    return whole.minX - reach_ <= box.minX && whole.minY - reach_ <= box.minY &&
           box.maxX <= whole.maxX + reach_ && box.maxY <= whole.maxY + reach_;
}

/// Whether a whole keeps fewer parts than it may.
bool PartedBoxes::HasRoom(int whole) const {
    int kept = 0;
    for (int part = firstPart_[static_cast<std::size_t>(whole)]; part != kNone;
         part = PartAt(part).next) {
        ++kept;
    }
    return kept < kMostParts;
}

void PartedBoxes::AddPart(int whole, const PlanBox& wholeBox, const PlanBox& box) {
    const int item = Size();
    Part& part = parts_.emplace_back(Part{FloatBox(box), whole});
    part.isWithin = IsWithin(box, wholeBox);
    part.isKept = part.isWithin && IsListed(whole) && HasRoom(whole);
    part.hasItsPlace = !part.isKept || (!isNearUnlisted_.empty() &&
                                        isNearUnlisted_[static_cast<std::size_t>(whole)]);
    if (part.isKept) {
        part.next = std::exchange(firstPart_[static_cast<std::size_t>(whole)], item);
    }
    if (part.hasItsPlace) {
        byPlace_.Add(item, box);
    }
}

void PartedBoxes::RemovePart(int item, const PlanBox& box) {
    const Part& part = PartAt(item);
    if (part.hasItsPlace) {
        byPlace_.Remove(item, box);
    }
    if (part.isKept) {
        int* link = &firstPart_[static_cast<std::size_t>(part.whole)];
        while (*link != item) {
            link = &PartAt(*link).next;
        }
        *link = part.next;
    }
}

/// The parts that a whole keeps.
void PartedBoxes::CollectKept(int whole, int item, const FloatBox& reached, Indices& items) const {
    for (int part = firstPart_[static_cast<std::size_t>(whole)]; part != kNone;
         part = PartAt(part).next) {
        if (part > item && PartAt(part).box.Overlaps(reached)) {
            items.push_back(part);
        }
    }
}

void PartedBoxes::CollectListed(int item, const PlanBox& reached, Indices& items) const {
    const FloatBox reachedFloat(reached);
    ForEachNear(ListOf(item), [&](int whole) {
        if (whole > item) {
            items.push_back(whole);
        }
        CollectKept(whole, item, reachedFloat, items);
    });
}

/// A part elsewhere comes near wholes that know nothing of its own. What they keep may leave them
/// by the reach.
void PartedBoxes::CollectKeptAround(int item, const PlanBox& reached, Indices& items) const {
    const FloatBox reachedFloat(reached);
    Indices near;
    tree_.Collect(reached.Widened(reach_), near);
    for (const int whole : near) {
        CollectKept(whole, item, reachedFloat, items);
    }
}

/// Parts near a whole without a list have their place.
void PartedBoxes::CollectLater(int item, const PlanBox& box, Indices& items) const {
    const PlanBox reached = box.Widened(reach_);
    if (item >= wholes_ && !PartAt(item).isWithin) {
        CollectKeptAround(item, reached, items);
    } else if (IsListed(WholeOf(item))) {
        CollectListed(item, reached, items);
    } else if (item < wholes_) {
        CollectBehind(item, tree_, reached, items);
    }
    CollectBehind(item, byPlace_, reached, items);
}

} // namespace tkvlt
